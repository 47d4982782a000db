// MemoryNamespace.h: TMemoryNamespaceImpl, the namespace behind TMemoryNamespace::Create (never
// installed).
//
// It owns its committed classes (by name and in commit order, and the root classes apart) and its
// committed qualifier declarations (by name and in commit order). Classes and qualifier
// declarations hold it weakly and enter themselves on Commit through AddClass and AddQualifierDecl.
// Its destructor empties every class made in it, committed or not, which breaks the cycles that
// values referring to classes of the same namespace would otherwise keep alive (a class whose
// property default refers to the class itself owns itself). Failures are TVYRException as
// vyrmemory.h lists them. One thread at a time.
#ifndef VYRMEMORY_MEMORYNAMESPACE_H
#define VYRMEMORY_MEMORYNAMESPACE_H

#include <string>
#include <vector>

#include <boost/enable_shared_from_this.hpp>
#include <boost/weak_ptr.hpp>

#include <vyrcore/CIMObjectModel.h>

#include "NamedList.h"

namespace NORXVYR20 {
namespace detail {

class TMemoryClass;
class TMemoryQualifierDecl;

class TMemoryNamespaceImpl : public ICIMNamespace,
                             public boost::enable_shared_from_this<TMemoryNamespaceImpl> {
 public:
  explicit TMemoryNamespaceImpl(const std::string& name);
  ~TMemoryNamespaceImpl() override;

  // The superclass must be a class of this namespace (else kVYRStatusInvalidClass); a name
  // already committed throws kVYRStatusAlreadyExists.
  boost::shared_ptr<ICIMClass> CreateClass(const std::string& name,
                                           boost::shared_ptr<ICIMClass> superclass,
                                           TCIMContext& context) override;
  boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TCIMContext& context) override;
  void EnumerateClasses(boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback,
                        TCIMContext& context) override;
  boost::shared_ptr<ICIMQualifierDecl> CreateQualifierDecl(const std::string& name,
                                                           const TCIMValue& defaultValue,
                                                           unsigned int scope, unsigned int flavor,
                                                           TCIMContext& context) override;
  boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(const std::string& name,
                                                        TCIMContext& context) override;
  void EnumerateQualifierDecls(
      boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)>& callback,
      TCIMContext& context) override;
  const std::string& GetName() const override;

  // Called by Commit: enter a class or qualifier declaration under its name.
  void AddClass(const boost::shared_ptr<TMemoryClass>& cimClass);
  void AddQualifierDecl(const boost::shared_ptr<TMemoryQualifierDecl>& declaration);

  // The weak stand-in that stored reference values hold instead of this namespace (StoredValue.h).
  boost::shared_ptr<ICIMNamespace> GetStandIn();

 private:
  std::string fName;
  TNamedList<TMemoryClass> fClasses;
  std::vector<boost::shared_ptr<TMemoryClass>> fRootClasses;
  TNamedList<TMemoryQualifierDecl> fQualifierDecls;
  boost::shared_ptr<ICIMNamespace> fStandIn;
  // Every class made here, weakly: those never committed are emptied at teardown too.
  std::vector<boost::weak_ptr<TMemoryClass>> fMade;
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
