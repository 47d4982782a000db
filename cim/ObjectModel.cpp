// The out-of-line destructors of the object-model interfaces, so that their virtual tables and
// type information live in the library and are shared by every plug-in.
#include <vyrcore/CIMObjectModel.h>
#include <vyrcore/NamespaceProvider.h>

namespace NORXVYR20 {

ICIMElement::~ICIMElement() = default;
ICIMNamedElement::~ICIMNamedElement() = default;
ICIMNamespace::~ICIMNamespace() = default;
ICIMClass::~ICIMClass() = default;
ICIMInstance::~ICIMInstance() = default;
ICIMProperty::~ICIMProperty() = default;
ICIMPropertyDecl::~ICIMPropertyDecl() = default;
ICIMQualifierDecl::~ICIMQualifierDecl() = default;
ICIMQualifier::~ICIMQualifier() = default;
ICIMMethodDecl::~ICIMMethodDecl() = default;
ICIMParameterDecl::~ICIMParameterDecl() = default;
INamespaceProvider::~INamespaceProvider() = default;
INamespaceConsumer::~INamespaceConsumer() = default;

}  // namespace NORXVYR20
