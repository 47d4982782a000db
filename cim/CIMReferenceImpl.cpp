// TCIMReferenceImpl: the reference model and its checked key bindings. The path text is read in
// ObjectPathReader.cpp and written in ObjectPathWriter.cpp.
//
// The class can only be set while there are no key bindings, so every binding was checked against
// the current class: it must name a property the class declares (any property, Key qualifier or
// not) and carry exactly the declared type. A failed operation leaves the reference as it was.
#include <vyrcore/CIMReferenceImpl.h>

#include <vyrcore/CIMObjectModel.h>

#include "cim/NestedReferences.h"
#include "core/Fail.h"

namespace NORXVYR20 {

TCIMReferenceImpl::TCIMReferenceImpl(TCIMReference& owner,
                                     boost::shared_ptr<ICIMNamespace> cimNamespace,
                                     std::map<std::string, TCIMValue> context)
    : fOwner(&owner), fNamespace(cimNamespace), fContext(std::move(context)) {}

TCIMReferenceImpl::TCIMReferenceImpl(const TCIMReferenceImpl& other) = default;
TCIMReferenceImpl::~TCIMReferenceImpl() = default;

void TCIMReferenceImpl::SetOwner(TCIMReference& owner) { fOwner = &owner; }

void TCIMReferenceImpl::SetNamespace(boost::shared_ptr<ICIMNamespace> cimNamespace) {
  fNamespace = cimNamespace;
}

boost::shared_ptr<ICIMNamespace> TCIMReferenceImpl::GetNamespace() const { return fNamespace; }

void TCIMReferenceImpl::Clear() {
  fNamespace.reset();
  fClass.reset();
  fKeyBindings.clear();
  fCachedElement.reset();
}

void TCIMReferenceImpl::SetPath(const std::string& path) {
  if (!fNamespace || fClass || !fKeyBindings.empty()) detail::Fail(kVYRStatusInvalidOpSequence);
  unsigned long position = 0;
  ParsePath(this, path, position);
}

void TCIMReferenceImpl::SetClassName(const std::string& className) {
  if (!fNamespace || !fKeyBindings.empty()) detail::Fail(kVYRStatusInvalidOpSequence);
  fClass = detail::TranslateNotFound(
      [&] {
        TCIMContext context(fContext);
        return fNamespace->GetClass(className, context);
      },
      kVYRStatusUnknownClass);
}

void TCIMReferenceImpl::SetClass(boost::shared_ptr<ICIMClass> cimClass) {
  // Even the same class again: the bindings were checked against the class object, not its name.
  if (!fKeyBindings.empty()) detail::Fail(kVYRStatusInvalidOpSequence);
  fClass = cimClass;
}

boost::shared_ptr<ICIMClass> TCIMReferenceImpl::GetClass() const {
  if (!fClass) detail::Fail(kVYRStatusInvalidReference);
  return fClass;
}

std::string TCIMReferenceImpl::GetClassName() const {
  TCIMContext context;
  return GetClass()->GetName(context);
}

void TCIMReferenceImpl::AddKeyValue(const std::string& name, const TCIMValue& value) {
  if (!fClass) detail::Fail(kVYRStatusInvalidOpSequence);
  TCIMContext context;
  detail::TNestedReferences::Bind(*this, name, fClass->GetPropertyDecl(name, context)->GetType(),
                                  value);
}

void TCIMReferenceImpl::EnumerateKeyBindings(
    boost::function<bool(std::pair<std::string, TCIMValue>)> callback) const {
  // The walk runs over a copy: a callback may clear, change or replace (and so destroy) this
  // reference, and it still gets the bindings as they were when the walk began.
  const std::map<std::string, TCIMValue> bindings(fKeyBindings);
  for (const auto& binding : bindings)
    if (!callback(std::pair<std::string, TCIMValue>(binding))) return;
}

boost::shared_ptr<ICIMElement> TCIMReferenceImpl::GetCIMElement() const {
  if (fKeyBindings.empty()) return fClass;
  // The instance is asked for once and kept, even when keys are added later, until Clear.
  if (!fCachedElement) {
    TCIMContext context;
    fCachedElement = fClass->GetInstance(*fOwner, context);
  }
  if (!fCachedElement) detail::Fail(kVYRStatusNotFound);
  return fCachedElement;
}

bool TCIMReferenceImpl::operator==(const TCIMReferenceImpl& other) const {
  return detail::TNestedReferences::Equal(*this, other);
}

bool TCIMReferenceImpl::operator<(const TCIMReferenceImpl& other) const {
  return detail::TNestedReferences::Compare(*this, other) < 0;
}

}  // namespace NORXVYR20
