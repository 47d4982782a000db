// NestedReferences.h: references held inside values, reached in place (never installed).
//
// A key binding may hold a reference, whose bindings may hold references in turn. Reaching a
// nested reference through the value's reader copies it with everything below it, and ordering
// key-binding maps with std::map's `<` compares every pair twice; together they made ordering
// exponential, and comparing and reading quadratic, in the nesting depth. The operations here
// walk each level once, on the objects the values hold, and copy nothing. The binding steps below
// are AddKeyValue's after its declaration lookup, for callers that have looked the declaration up
// already (the path reader): one lookup per key, and the value built where it is kept. One thread
// at a time.
#ifndef VYRCORE_CIM_NESTEDREFERENCES_H
#define VYRCORE_CIM_NESTEDREFERENCES_H

#include <string>

#include <vyrcore/CIMReferenceImpl.h>
#include <vyrcore/CIMValue.h>

namespace NORXVYR20 {
namespace detail {

class TNestedReferences {
 public:
  // -1 when a orders before b, 1 when b orders before a, 0 when neither: what `<` answers
  // both ways (class address, then the bindings pair by pair, name first, then value; a
  // shorter list that agrees comes first). Values are compared in the order `<` compares them,
  // so a comparison that throws (a point in time against an interval) throws here too.
  static int Compare(const TCIMReferenceImpl& a, const TCIMReferenceImpl& b);
  // `==`: the same class object and the same bindings, names and values equal.
  static bool Equal(const TCIMReferenceImpl& a, const TCIMReferenceImpl& b);

  // The reference a value holds; null when the value is null or holds no reference.
  static const TCIMReferenceImpl* HeldBy(const TCIMValue& value);

  // AddKeyValue once the property was found declared of type `declared`: a value of another type
  // is logged and throws kVYRStatusTypeMismatch; a name bound before keeps its first value.
  static void Bind(TCIMReferenceImpl& target, const std::string& name,
                   TCIMValue::TCIMType declared, const TCIMValue& value);
  // Bind(target, name, declared, TCIMValue(declared, text, cimNamespace)), the value built in
  // place. It is read even when the name is bound already, so that text the type cannot read
  // throws all the same.
  static void BindText(TCIMReferenceImpl& target, const std::string& name,
                       TCIMValue::TCIMType declared, std::string& text,
                       const boost::shared_ptr<ICIMNamespace>& cimNamespace);
  // Bind(target, name, declared, TCIMValue(nested)), but nested's key bindings and found
  // instance are moved into the bound value instead of copied. nested is left with its class and
  // no bindings.
  static void Bind(TCIMReferenceImpl& target, const std::string& name,
                   TCIMValue::TCIMType declared, TCIMReference& nested);

 private:
  // Compare and Equal for two values: references level by level, anything else by the value's
  // own operators.
  static int Compare(const TCIMValue& a, const TCIMValue& b);
  static bool Equal(const TCIMValue& a, const TCIMValue& b);
  static TCIMReferenceImpl* Held(const TCIMValue& value);
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
