// PropertySlots.h: TPropertySlots, where the instances of one in-memory class keep their values
// (never installed).
//
// Each property name the class sees (its own declarations and inherited ones) gets a slot number
// the first time it is seen and keeps it: declarations are only ever added, so numbers never move
// and an instance's values stay where they were put whatever is declared later. Instances keep
// their values in an array by slot number (TStoredSlot) instead of a map of names, and the names
// are kept once here. A slot also lists every declaration its name has resolved to, the most
// derived last: a value remembers by its index (its generation) the one it was set under, since a
// property answers the declaration of its value even after a re-declaration has taken the name
// over. Providers set and read values in declaration order, instance after instance, so Find
// first tries the slot after the one it found last: a name compare instead of hashing it and a
// division to pick its bucket. Throws only std::bad_alloc. One thread at a time.
#ifndef VYRMEMORY_PROPERTYSLOTS_H
#define VYRMEMORY_PROPERTYSLOTS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMValue.h>

namespace NORXVYR20 {
namespace detail {

class TMemoryPropertyDecl;

class TPropertySlots {
 public:
  typedef boost::shared_ptr<TMemoryPropertyDecl> TDecl;
  typedef std::vector<std::size_t> TSlotNumbers;

  // Follows the class's declarations, given as TMemoryClass::AllPropertyDecls lists them.
  void Update(const std::vector<TDecl>& declarations);
  // The slot of name; false when the class sees no declaration of it.
  bool Find(const std::string& name, std::size_t& slot) const;
  std::size_t Count() const { return fDeclarations.size(); }
  // The slot of each declaration of the last Update, in its order. Shared and never changed, so a
  // walk can hold it while a callback declares more.
  const boost::shared_ptr<const TSlotNumbers>& InOrder() const { return fInOrder; }
  // The generation a value set now in slot goes under.
  std::uint16_t Current(std::size_t slot) const {
    return static_cast<std::uint16_t>(fDeclarations[slot].size() - 1);
  }
  // The declaration of that generation; empty when the table was cleared since.
  const TDecl& Declaration(std::size_t slot, std::uint16_t generation) const;
  // The type of the current generation's declaration (a value set now must have it).
  TCIMValue::TCIMType::ECIMType CurrentType(std::size_t slot) const { return fCurrentTypes[slot]; }
  // True while every declaration seen so far (superseded ones included) is of a type whose values
  // are equal only when their content is the same: booleans, integers and strings.
  bool ContentTypesOnly() const { return fContentTypesOnly; }
  // Forgets every slot and declaration (the class's teardown).
  void Clear();

 private:
  std::unordered_map<std::string, std::size_t> fByName;
  std::vector<const std::string*> fNames;  // by slot: the keys of fByName, which never move
  mutable std::size_t fNextGuess = 0;      // the slot after the one Find found last
  std::vector<std::vector<TDecl>> fDeclarations;
  std::vector<TCIMValue::TCIMType::ECIMType> fCurrentTypes;  // by slot
  boost::shared_ptr<const TSlotNumbers> fInOrder;
  TDecl fNone;
  bool fContentTypesOnly = true;
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
