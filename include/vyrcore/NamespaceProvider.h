/// @file
/// NamespaceProvider.h: the objects that provider and consumer plug-ins hand to the library.
///
/// An INamespaceProvider serves CIM namespaces and is registered under its name; an
/// INamespaceConsumer is made by a consumer plug-in's factory and used by the front end only.
/// Both are held as boost::shared_ptr. The operation order is a binary contract with plug-ins.
#ifndef VYRCORE_NAMESPACEPROVIDER_H
#define VYRCORE_NAMESPACEPROVIDER_H

#include <map>
#include <string>

#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMObjectModel.h>
#include <vyrcore/CIMValue.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

/// A source of CIM namespaces, registered under its name by the plug-in that holds it.
class VYR_EXPORT INamespaceProvider {
 public:
  virtual ~INamespaceProvider();
  /// The name the provider is registered and looked up under.
  virtual const std::string& GetName(std::map<std::string, TCIMValue>& context) = 0;
  /// Throws kVYRStatusNotFound for a namespace the provider does not serve.
  virtual boost::shared_ptr<ICIMNamespace> GetNamespace(
      const std::string& name, std::map<std::string, TCIMValue>& context) = 0;
};

/// The library creates consumers and calls none of their operations; a consumer's interface
/// beyond this is agreed between the front end and its plug-ins.
class VYR_EXPORT INamespaceConsumer {
 public:
  virtual ~INamespaceConsumer();
};

}  // namespace NORXVYR20

#endif
