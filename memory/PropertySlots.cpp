// The slot numbers and declarations behind the values of one in-memory class's instances.
#include "PropertySlots.h"

#include <boost/make_shared.hpp>

#include "MemoryDeclarations.h"

namespace NORXVYR20 {
namespace detail {

namespace {

bool IsContentType(TCIMValue::TCIMType::ECIMType type) {
  return type >= TCIMValue::TCIMType::kCIMTypeBoolean &&
         (type <= TCIMValue::TCIMType::kCIMTypeSInt64 || type == TCIMValue::TCIMType::kCIMTypeString);
}

}  // namespace

void TPropertySlots::Update(const std::vector<TDecl>& declarations) {
  boost::shared_ptr<TSlotNumbers> inOrder = boost::make_shared<TSlotNumbers>();
  inOrder->reserve(declarations.size());
  for (const TDecl& declaration : declarations) {
    auto placed = fByName.emplace(declaration->GetName(), fDeclarations.size());
    if (placed.second) {
      fNames.push_back(&placed.first->first);
      fDeclarations.emplace_back();
      fCurrentTypes.push_back(TCIMValue::TCIMType::kCIMTypeNull);
    }
    const std::size_t slot = placed.first->second;
    std::vector<TDecl>& resolved = fDeclarations[slot];
    // The most derived declaration of a name only ever moves down the class chain, so a name
    // resolves to at most one declaration per class above it.
    if (resolved.empty() || resolved.back() != declaration) {
      resolved.push_back(declaration);
      fCurrentTypes[slot] = declaration->GetType();
      fContentTypesOnly = fContentTypesOnly && IsContentType(declaration->GetType());
    }
    inOrder->push_back(slot);
  }
  fInOrder = inOrder;
}

bool TPropertySlots::Find(const std::string& name, std::size_t& slot) const {
  if (fNextGuess < fNames.size() && *fNames[fNextGuess] == name) {
    slot = fNextGuess;
  } else {
    auto found = fByName.find(name);
    if (found == fByName.end()) return false;
    slot = found->second;
  }
  fNextGuess = slot + 1;
  return true;
}

const TPropertySlots::TDecl& TPropertySlots::Declaration(std::size_t slot,
                                                         std::uint16_t generation) const {
  if (slot >= fDeclarations.size() || generation >= fDeclarations[slot].size()) return fNone;
  return fDeclarations[slot][generation];
}

void TPropertySlots::Clear() {
  fByName.clear();
  fNames.clear();
  fNextGuess = 0;
  fDeclarations.clear();
  fCurrentTypes.clear();
  fInOrder.reset();
}

}  // namespace detail
}  // namespace NORXVYR20
