// TestNamespace.h: a small in-memory namespace for the reference, path and value tests.
//
//   CIM_Foo   Id uint32, Tag string;  instances {Id 7, Tag "x"} and {Id 8, Tag "y"}
//   CIM_Link  Left reference, Right reference, Label string
//   CIM_All   one property per type: B boolean, U8, S8, U16, S16, U32, S32, U64, S64, R32, R64,
//             S string, D datetime, Ref reference
#ifndef VYRCORE_TESTS_CIM_TESTNAMESPACE_H
#define VYRCORE_TESTS_CIM_TESTNAMESPACE_H

#include <string>

#include <vyrcore/CIMObjectModel.h>

namespace vyrtest {

boost::shared_ptr<NORXVYR20::ICIMNamespace> MakeTestNamespace(const std::string& name = "test");

// The committed class of that name.
boost::shared_ptr<NORXVYR20::ICIMClass> ClassOf(
    const boost::shared_ptr<NORXVYR20::ICIMNamespace>& cimNamespace, const std::string& name);

// An empty context to pass to the object-model operations.
NORXVYR20::TCIMContext& NoContext();

}  // namespace vyrtest

#endif
