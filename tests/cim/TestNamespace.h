// TestNamespace.h: a small in-memory namespace for the reference, path and value tests.
//
//   CIM_Foo   Id uint32, Tag string;  instances {Id 7, Tag "x"} and {Id 8, Tag "y"}
//   CIM_Link  Left reference, Right reference, Label string
//   CIM_All   one property per type: B boolean, U8, S8, U16, S16, U32, S32, U64, S64, R32, R64,
//             S string, D datetime, Ref reference
#ifndef VYRCORE_TESTS_CIM_TESTNAMESPACE_H
#define VYRCORE_TESTS_CIM_TESTNAMESPACE_H

#include <string>
#include <vector>

#include <vyrcore/CIMObjectModel.h>

namespace vyrtest {

boost::shared_ptr<NORXVYR20::ICIMNamespace> MakeTestNamespace(const std::string& name = "test");

// Commits one more CIM_Foo instance.
boost::shared_ptr<NORXVYR20::ICIMInstance> AddFoo(NORXVYR20::ICIMNamespace& cimNamespace,
                                                  unsigned int id, const char* tag);

// An empty context to pass to the object-model operations.
NORXVYR20::TCIMContext& NoContext();

// "name=value" per key binding, in the order the reference enumerates them, values in their
// radix-10 text form; the enumeration is told to stop after `limit` bindings.
std::vector<std::string> Bindings(const NORXVYR20::TCIMReference& reference, unsigned limit = 99);

}  // namespace vyrtest

#endif
