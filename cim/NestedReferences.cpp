// Ordering, comparing and binding nested references in place.
#include "cim/NestedReferences.h"

#include <functional>
#include <tuple>

#include <vyrcore/CIMValueImpl.h>

#include "core/Fail.h"

namespace NORXVYR20 {
namespace detail {

int TNestedReferences::Compare(const TCIMReferenceImpl& a, const TCIMReferenceImpl& b) {
  if (a.fClass != b.fClass)
    return std::less<ICIMClass*>()(a.fClass.get(), b.fClass.get()) ? -1 : 1;
  auto left = a.fKeyBindings.begin();
  auto right = b.fKeyBindings.begin();
  for (; left != a.fKeyBindings.end() && right != b.fKeyBindings.end(); ++left, ++right) {
    if (const int names = left->first.compare(right->first)) return names < 0 ? -1 : 1;
    if (const int values = Compare(left->second, right->second)) return values;
  }
  if (left == a.fKeyBindings.end()) return right == b.fKeyBindings.end() ? 0 : -1;
  return 1;
}

bool TNestedReferences::Equal(const TCIMReferenceImpl& a, const TCIMReferenceImpl& b) {
  if (a.fClass != b.fClass || a.fKeyBindings.size() != b.fKeyBindings.size()) return false;
  auto right = b.fKeyBindings.begin();
  for (const auto& left : a.fKeyBindings) {
    if (left.first != right->first || !Equal(left.second, right->second)) return false;
    ++right;
  }
  return true;
}

const TCIMReferenceImpl* TNestedReferences::HeldBy(const TCIMValue& value) { return Held(value); }

void TNestedReferences::Bind(TCIMReferenceImpl& target, const std::string& name,
                             TCIMValue::TCIMType declared, const TCIMValue& value) {
  const TCIMValue::TCIMType actual = value.GetType();
  if (declared != actual)
    FailWithLog(kVYRStatusTypeMismatch, "Core: Declaration type: " + declared.ToString() +
                                            " Value type: " + actual.ToString());
  auto& bindings = target.fKeyBindings;
  const auto place = bindings.lower_bound(name);
  if (place == bindings.end() || place->first != name) {
    bindings.emplace_hint(place, name, value);
    return;
  }
  // The first value stays. The new one is copied all the same, as binding always copied it:
  // a value of a type without a body kind (null, char16) throws kVYRStatusTypeMismatch here.
  const TCIMValue dropped(value);
}

void TNestedReferences::BindText(TCIMReferenceImpl& target, const std::string& name,
                                 TCIMValue::TCIMType declared, std::string& text,
                                 const boost::shared_ptr<ICIMNamespace>& cimNamespace) {
  // Whatever the text reads as has the declared type (or the reading throws), so there is no
  // type to check.
  auto& bindings = target.fKeyBindings;
  const auto place = bindings.lower_bound(name);
  if (place != bindings.end() && place->first == name) {
    TCIMValue(declared, text, cimNamespace);
    return;
  }
  bindings.emplace_hint(place, std::piecewise_construct, std::forward_as_tuple(name),
                        std::forward_as_tuple(declared, text, cimNamespace));
}

void TNestedReferences::Bind(TCIMReferenceImpl& target, const std::string& name,
                             TCIMValue::TCIMType declared, TCIMReference& nested) {
  TCIMReferenceImpl& source = *nested.GetBody();
  // What gets checked and copied is a reference to the same class without bindings; the
  // bindings follow once the value holding it is in place.
  TCIMReference shell(source.fNamespace, source.fContext);
  shell.SetClass(nested.GetClass());
  const TCIMValue value(shell);
  const bool fresh = target.fKeyBindings.find(name) == target.fKeyBindings.end();
  Bind(target, name, declared, value);
  // A name bound before keeps its first value: nested is dropped, as its copy would have been.
  if (!fresh) return;
  TCIMReferenceImpl& bound = *Held(target.fKeyBindings.find(name)->second);
  bound.fKeyBindings.swap(source.fKeyBindings);
  bound.fCachedElement.swap(source.fCachedElement);
}

int TNestedReferences::Compare(const TCIMValue& a, const TCIMValue& b) {
  const TCIMReferenceImpl* left = Held(a);
  const TCIMReferenceImpl* right = Held(b);
  if (left && right) return Compare(*left, *right);
  if (a < b) return -1;
  return b < a ? 1 : 0;
}

bool TNestedReferences::Equal(const TCIMValue& a, const TCIMValue& b) {
  const TCIMReferenceImpl* left = Held(a);
  const TCIMReferenceImpl* right = Held(b);
  if (left && right) return Equal(*left, *right);
  return a == b;
}

TCIMReferenceImpl* TNestedReferences::Held(const TCIMValue& value) {
  if (!value.IsReference() || !value.fBody) return nullptr;
  const auto* body = dynamic_cast<const TCIMReferenceValueImpl*>(value.fBody.get());
  return body ? body->fValue.GetBody() : nullptr;
}

}  // namespace detail
}  // namespace NORXVYR20
