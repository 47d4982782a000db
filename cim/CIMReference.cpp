// TCIMReference: the handle. Every operation is the body's; a copied body is made to belong to
// the handle that holds it, so an instance lookup through a copy hands the class that copy.
#include <vyrcore/CIMReference.h>

#include <vyrcore/CIMReferenceImpl.h>

namespace NORXVYR20 {

namespace {

// A copy of body that belongs to owner.
std::unique_ptr<TCIMReferenceImpl> OwnedCopy(const TCIMReferenceImpl& body, TCIMReference& owner) {
  std::unique_ptr<TCIMReferenceImpl> copy(new TCIMReferenceImpl(body));
  copy->SetOwner(owner);
  return copy;
}

}  // namespace

TCIMReference::TCIMReference(boost::shared_ptr<ICIMNamespace> cimNamespace,
                             std::map<std::string, TCIMValue> context)
    : fBody(new TCIMReferenceImpl(*this, cimNamespace, std::move(context))) {}

TCIMReference::TCIMReference(boost::shared_ptr<ICIMNamespace> cimNamespace,
                             const std::string& path, std::map<std::string, TCIMValue> context)
    : TCIMReference(cimNamespace, std::move(context)) {
  SetPath(path);
}

TCIMReference::TCIMReference(const TCIMReference& other)
    : fBody(OwnedCopy(*other.fBody, *this)) {}

TCIMReference& TCIMReference::operator=(const TCIMReference& other) {
  fBody = OwnedCopy(*other.fBody, *this);
  return *this;
}

TCIMReference::~TCIMReference() = default;

void TCIMReference::SetNamespace(boost::shared_ptr<ICIMNamespace> cimNamespace) {
  fBody->SetNamespace(cimNamespace);
}
boost::shared_ptr<ICIMNamespace> TCIMReference::GetNamespace() const {
  return fBody->GetNamespace();
}
void TCIMReference::Clear() { fBody->Clear(); }
void TCIMReference::SetPath(const std::string& path) { fBody->SetPath(path); }
std::string TCIMReference::GetPath() const { return fBody->GetPath(); }
void TCIMReference::SetClassName(const std::string& className) { fBody->SetClassName(className); }
void TCIMReference::SetClass(boost::shared_ptr<ICIMClass> cimClass) { fBody->SetClass(cimClass); }
boost::shared_ptr<ICIMClass> TCIMReference::GetClass() const { return fBody->GetClass(); }
std::string TCIMReference::GetClassName() const { return fBody->GetClassName(); }

void TCIMReference::AddKeyValue(const std::string& name, const TCIMValue& value) {
  fBody->AddKeyValue(name, value);
}

void TCIMReference::EnumerateKeyBindings(
    boost::function<bool(std::pair<std::string, TCIMValue>)> callback) const {
  fBody->EnumerateKeyBindings(callback);
}

boost::shared_ptr<ICIMElement> TCIMReference::GetCIMElement() const {
  return fBody->GetCIMElement();
}

bool TCIMReference::operator==(const TCIMReference& other) const {
  return *fBody == *other.fBody;
}
bool TCIMReference::operator<(const TCIMReference& other) const { return *fBody < *other.fBody; }

TCIMReferenceImpl* TCIMReference::GetBody() const { return fBody.get(); }

}  // namespace NORXVYR20
