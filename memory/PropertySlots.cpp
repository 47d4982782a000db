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
    if (placed.second) fDeclarations.emplace_back();
    std::vector<TDecl>& resolved = fDeclarations[placed.first->second];
    // The most derived declaration of a name only ever moves down the class chain, so a name
    // resolves to at most one declaration per class above it.
    if (resolved.empty() || resolved.back() != declaration) {
      resolved.push_back(declaration);
      fContentTypesOnly = fContentTypesOnly && IsContentType(declaration->GetType());
    }
    inOrder->push_back(placed.first->second);
  }
  fInOrder = inOrder;
}

bool TPropertySlots::Find(const std::string& name, std::size_t& slot) const {
  auto found = fByName.find(name);
  if (found == fByName.end()) return false;
  slot = found->second;
  return true;
}

const TPropertySlots::TDecl& TPropertySlots::Declaration(std::size_t slot,
                                                         std::uint16_t generation) const {
  if (slot >= fDeclarations.size() || generation >= fDeclarations[slot].size()) return fNone;
  return fDeclarations[slot][generation];
}

void TPropertySlots::Clear() {
  fByName.clear();
  fDeclarations.clear();
  fInOrder.reset();
}

}  // namespace detail
}  // namespace NORXVYR20
