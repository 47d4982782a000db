// MemoryClass.h: TMemoryClass, a class of the in-memory namespace (never installed).
//
// A class holds its namespace weakly and its superclass strongly; once committed it is owned by
// the namespace and listed with its superclass's subclasses (a pointer down the tree that the
// namespace's teardown clears). It owns its qualifiers, its own property and method declarations,
// its static property values and its committed instances (TInstanceIndex). Property declarations
// are seen through the superclass chain: the most derived declaration of a name wins, and the
// full list runs from the root class down with a re-declaration in its inherited place. Failures
// are TVYRException as vyrmemory.h lists them. One thread at a time.
#ifndef VYRMEMORY_MEMORYCLASS_H
#define VYRMEMORY_MEMORYCLASS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <boost/enable_shared_from_this.hpp>
#include <boost/weak_ptr.hpp>

#include <vyrcore/CIMObjectModel.h>

#include "InstanceIndex.h"
#include "MemoryDeclarations.h"
#include "NamedList.h"
#include "PropertySlots.h"
#include "ReferenceMemo.h"

namespace NORXVYR20 {
namespace detail {

class TMemoryInstance;
class TMemoryNamespaceImpl;
class TMemoryProperty;

class TMemoryClass : public ICIMClass, public boost::enable_shared_from_this<TMemoryClass> {
 public:
  TMemoryClass(const std::string& name, boost::shared_ptr<TMemoryClass> superclass,
               boost::weak_ptr<TMemoryNamespaceImpl> owner);
  ~TMemoryClass() override;

  // Enters the class into its namespace (after its superclass).
  void Commit(TCIMContext& context) override;
  boost::shared_ptr<ICIMQualifier> AddQualifier(boost::shared_ptr<ICIMQualifierDecl> declaration,
                                                const TCIMValue& value) override;

  const std::string& GetName(TCIMContext& context) override;
  bool IsAssociation(TCIMContext& context) override;
  bool IsAbstract(TCIMContext& context) override;
  bool IsRootClass(TCIMContext& context) override;
  boost::shared_ptr<ICIMClass> GetSuperclass(TCIMContext& context) override;
  void EnumerateSubclasses(boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback, bool deep,
                           TCIMContext& context) override;
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name) override;
  void EnumerateQualifiers(
      boost::function<bool(boost::shared_ptr<ICIMQualifier>)>& callback) override;
  boost::shared_ptr<ICIMPropertyDecl> CreatePropertyDecl(const std::string& name,
                                                         const TCIMValue& defaultValue,
                                                         TCIMContext& context) override;
  boost::shared_ptr<ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                      TCIMContext& context) override;
  void EnumeratePropertyDecls(boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>& callback,
                              TCIMContext& context) override;
  void SetStaticPropertyValue(const std::string& name, const TCIMValue& value,
                              TCIMContext& context) override;
  void EnumerateStaticProperties(boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
                                 TCIMContext& context) override;
  boost::shared_ptr<ICIMInstance> CreateInstance(TCIMContext& context) override;
  boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& path,
                                              TCIMContext& context) override;
  void EnumerateInstances(boost::function<bool(boost::shared_ptr<ICIMInstance>)>& callback,
                          bool deep, TCIMContext& context) override;
  boost::shared_ptr<ICIMMethodDecl> CreateMethodDecl(const std::string& name,
                                                     TCIMValue::TCIMType returnType,
                                                     TCIMContext& context) override;
  void EnumerateMethodDecls(boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)>& callback,
                            TCIMContext& context) override;

  // For the namespace and the instances.
  const std::string& Name() const { return fName; }
  const boost::shared_ptr<TMemoryClass>& Superclass() const { return fSuperclass; }
  bool IsCommitted() const { return fCommitted; }
  bool BelongsTo(const TMemoryNamespaceImpl* space) const;
  // The most derived declaration of the name, or empty.
  boost::shared_ptr<TMemoryPropertyDecl> FindPropertyDecl(const std::string& name) const;
  // The same, but kVYRStatusNotFound (logged as a lookup) when the class sees no declaration of
  // the name.
  boost::shared_ptr<TMemoryPropertyDecl> DeclarationOf(const std::string& name) const;
  // The declaration a value is set under; logs and throws kVYRStatusNotFound when there is none,
  // kVYRStatusTypeMismatch when the value's type is not the declared one.
  boost::shared_ptr<TMemoryPropertyDecl> DeclarationFor(const std::string& name,
                                                        const TCIMValue& value) const;
  // The slot (Slots()) that an instance sets a value of that name in, and the generation of the
  // declaration it goes under; refuses as DeclarationFor does.
  std::size_t SlotFor(const std::string& name, const TCIMValue& value,
                      std::uint16_t& generation) const;
  // Logs and throws kVYRStatusTypeMismatch when value's type is not the declaration's.
  void CheckType(const std::string& name, const TMemoryPropertyDecl& declaration,
                 const TCIMValue& value) const;
  typedef std::vector<boost::shared_ptr<TMemoryPropertyDecl>> TPropertyDecls;
  // Every declaration the class sees, inherited first, one per name. The list is shared and never
  // changed: a declaration made later (from a callback walking it, say) makes a new one.
  boost::shared_ptr<const TPropertyDecls> AllPropertyDecls() const;
  // Where the instances keep their values, brought up to the declarations the class sees now.
  const TPropertySlots& Slots() const;
  // A reference to this class compares by content alone: every declaration the class has seen
  // (ReferenceMemo.h) is a boolean, integer or string.
  bool DeclaresContentTypesOnly() const { return Slots().ContentTypesOnly(); }
  // Grows with every property declaration the class sees (declarations are only ever added).
  std::size_t DeclarationCount() const {
    FollowDeclarations();
    return fAllDeclsCount;
  }
  // The stored form of a reference value set in slot by an instance (ReferenceMemo.h).
  boost::shared_ptr<const TCIMValue> KeepReference(std::size_t slot, const TCIMValue& value);
  TInstanceIndex& Instances() { return fInstances; }
  // Drops every member, instance and subclass link (the namespace's teardown).
  void ReleaseMembers();

 private:
  bool WalkSubclasses(boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback, bool deep);
  bool WalkInstances(boost::function<bool(boost::shared_ptr<ICIMInstance>)>& callback, bool deep);
  void ForgetDefaults(const std::string& name);
  // Brings fAllDecls and fSlots up to the declarations made so far.
  void FollowDeclarations() const;

  std::string fName;
  boost::shared_ptr<TMemoryClass> fSuperclass;
  boost::weak_ptr<TMemoryNamespaceImpl> fOwner;
  bool fCommitted = false;
  std::vector<boost::shared_ptr<TMemoryClass>> fSubclasses;
  TQualifierSet fQualifiers;
  TNamedList<TMemoryPropertyDecl> fPropertyDecls;
  TNamedList<TMemoryProperty> fStaticProperties;
  TNamedList<TMemoryMethodDecl> fMethodDecls;
  TInstanceIndex fInstances;
  // AllPropertyDecls, kept: every instance enumeration asks for it, and building it anew each
  // time was a tenth of a namespace copy. Declarations are only ever added (ReleaseMembers, which
  // empties them, drops this too), so the number of own declarations summed up the superclass
  // chain changes whenever the list would.
  mutable boost::shared_ptr<const TPropertyDecls> fAllDecls;
  mutable std::size_t fAllDeclsCount = 0;
  // Follows fAllDecls.
  mutable TPropertySlots fSlots;
  std::vector<TReferenceMemo> fReferenceMemos;  // by slot
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
