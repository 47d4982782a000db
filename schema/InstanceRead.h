// InstanceRead.h: the reading steps the identification queries share (never installed).
//
// Each object-model call gets its own copy of the given context (an empty one for the queries
// that take none), so what a provider writes into one call's map never reaches the next. Failures
// are the object model's own TVYRException, passed on unchanged. One thread at a time.
#ifndef VYRCORE_SCHEMA_INSTANCEREAD_H
#define VYRCORE_SCHEMA_INSTANCEREAD_H

#include <string>
#include <vector>

#include <vyrcore/CIMObjectModel.h>

namespace NORXVYR20 {
namespace detail {

// Every instance of the class, its subclasses' included.
std::vector<boost::shared_ptr<ICIMInstance>> AllInstances(ICIMClass& cimClass,
                                                          const TCIMContext& context);

// The value of the instance's property, copied out.
TCIMValue PropertyValue(ICIMInstance& instance, const std::string& name,
                        const TCIMContext& context);

// The property of the single instance of the named class; kVYRStatusNotFound unless there is
// exactly one.
TCIMValue SingleInstanceValue(ICIMNamespace& cimNamespace, const std::string& className,
                              const std::string& property, const TCIMContext& context);

}  // namespace detail
}  // namespace NORXVYR20

#endif
