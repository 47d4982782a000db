// Reading the text form of an object path into a reference.
//
//   path         := className [ "." keyBindings ]
//   keyBindings  := [ binding { ("," | ".") binding } ]
//   binding      := propertyName "=" '"' keyValue '"'
//   keyValue     := quoted text, or a nested path when the property is a reference
//
// The class and every property are resolved in the namespace while reading, and each key value is
// read from its text by the property's declared type. A nested path stands unescaped inside the
// quotes of its key value and ends at the first double quote where a separator would come. Inside
// a quoted value a backslash escapes a double quote or a backslash and is kept before anything
// else. Deliberate leniencies, kept: a path without "." runs to the end of the whole text, even
// when nested; "." may separate bindings too; nothing is trimmed, so blanks belong to the names.
//
// Nesting is bounded: a path may hold references 64 levels deep, far beyond any real one; deeper
// text is refused before the recursion could exhaust the stack. Each nested path is read into a
// reference of its own and its bindings are then moved, not copied, into the value bound above it,
// so reading stays linear in the length of the text.
#include <vyrcore/CIMReferenceImpl.h>

#include <vyrcore/CIMObjectModel.h>

#include "cim/NestedReferences.h"
#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

const int kMaxNesting = 64;

// One parse: the text, the cursor into it (shared with the caller) and where names resolve.
class TObjectPathReader {
 public:
  TObjectPathReader(const std::string& text, unsigned long& position,
                    boost::shared_ptr<ICIMNamespace> cimNamespace, const TCIMContext& context)
      : fText(text), fPosition(position), fNamespace(cimNamespace), fContext(context) {}

  // path: from position 0 a whole text; from anywhere else a nested path, with the cursor on the
  // opening quote of its key value on entry and on the closing quote on return.
  void ReadPath(TCIMReferenceImpl& target) {
    const bool nested = fPosition != 0;
    if (nested) ++fPosition;
    const std::string::size_type dot = fText.find('.', fPosition);
    if (dot == std::string::npos) {
      target.SetClassName(fText.substr(fPosition));
      fPosition = fText.size();
      return;
    }
    const std::string className = fText.substr(fPosition, dot - fPosition);
    boost::shared_ptr<ICIMClass> cimClass = LookUp(
        [&] {
          TCIMContext context(fContext);
          return fNamespace->GetClass(className, context);
        },
        [] { return std::string("Reference specifies invalid class, path="); });
    target.SetClass(cimClass);
    fPosition = dot;
    ReadKeyBindings(target, cimClass, nested);
  }

 private:
  // keyBindings: the cursor starts on the "." after the class name and ends on the last
  // character consumed.
  void ReadKeyBindings(TCIMReferenceImpl& target, const boost::shared_ptr<ICIMClass>& cimClass,
                       bool nested) {
    for (bool first = true;; first = false) {
      ++fPosition;
      if (AtEnd()) return;
      if (nested && Current() == '"') return;
      // On the first pass the "." just stepped over was the separator.
      std::string::size_type nameStart = fPosition;
      if (!first) {
        if (Current() != ',' && Current() != '.') FailAt("Reference missing '.' or ',', path=");
        nameStart = fPosition + 1;
      }
      ReadBinding(target, cimClass, nameStart);
    }
  }

  // binding: the name runs from nameStart to the "="; the cursor ends on the value's closing
  // quote.
  void ReadBinding(TCIMReferenceImpl& target, const boost::shared_ptr<ICIMClass>& cimClass,
                   std::string::size_type nameStart) {
    const std::string::size_type equals = fText.find('=', nameStart);
    if (equals == std::string::npos) FailAt("Reference missing property value, path=");
    const std::string name = fText.substr(nameStart, equals - nameStart);
    boost::shared_ptr<ICIMPropertyDecl> declaration = LookUp(
        [&] {
          TCIMContext context;
          return cimClass->GetPropertyDecl(name, context);
        },
        [&] { return "Reference specifies invalid property, property=" + name + ", path="; });
    fPosition = equals + 1;
    if (AtEnd() || Current() != '"') FailAt("Reference missing opening '\"', path=");
    // The property was found once: the binding is checked against that declaration, not looked
    // up again.
    if (declaration->GetDefaultValue().IsReference()) {
      ReadNestedPath(target, name, declaration->GetType());
    } else {
      std::string text = ReadQuotedText();
      detail::TNestedReferences::BindText(target, name, declaration->GetType(), text, fNamespace);
    }
  }

  // keyValue of a reference: a nested path, read into a reference of its own and then bound
  // under name. The cursor starts on the opening quote and ends on the closing one.
  void ReadNestedPath(TCIMReferenceImpl& target, const std::string& name,
                      TCIMValue::TCIMType declared) {
    if (fDepth == kMaxNesting)
      FailAt("Reference nested deeper than " + std::to_string(kMaxNesting) +
             " references, path=");
    TCIMReference nested(fNamespace, fContext);
    ++fDepth;
    ReadPath(*nested.GetBody());
    --fDepth;
    detail::TNestedReferences::Bind(target, name, declared, nested);
  }

  // The text between the quotes, unescaped: taken a stretch at a time up to the next quote or
  // backslash.
  std::string ReadQuotedText() {
    std::string text;
    for (;;) {
      const std::string::size_type stretch = ++fPosition;
      while (!AtEnd() && Current() != '"' && Current() != '\\') ++fPosition;
      if (AtEnd()) FailAt("Reference missing closing '\"', path=");
      text.append(fText, stretch, fPosition - stretch);
      if (Current() == '"') return text;
      // A backslash: it escapes a quote or a backslash and stays before anything else.
      ++fPosition;
      if (AtEnd()) FailAt("Reference missing closing '\"', path=");
      if (Current() != '\\' && Current() != '"') text += '\\';
      text += Current();
    }
  }

  // An object-model lookup whose NotFound becomes kVYRStatusInvalidReference, logged as the
  // message and the text; any other status passes on. The message is made only on failure: it
  // holds the whole text, and making it for every binding made reading a long path quadratic
  // (and every path slower).
  template <typename Lookup, typename Message>
  auto LookUp(Lookup&& lookup, Message&& message) const -> decltype(lookup()) {
    try {
      return lookup();
    } catch (const TVYRException& e) {
      if (e.GetStatusCode() != kVYRStatusNotFound) throw TVYRException(e.GetStatusCode());
    }
    FailAt(message());
  }

  bool AtEnd() const { return fPosition >= fText.size(); }
  char Current() const { return fText[fPosition]; }
  [[noreturn]] void FailAt(const std::string& message) const {
    detail::FailWithLog(kVYRStatusInvalidReference, message + fText);
  }

  const std::string& fText;
  unsigned long& fPosition;
  boost::shared_ptr<ICIMNamespace> fNamespace;
  const TCIMContext& fContext;
  int fDepth = 0;  // how many nested paths the cursor is in
};

}  // namespace

void TCIMReferenceImpl::ParsePath(TCIMReferenceImpl* target, const std::string& text,
                                  unsigned long& position) {
  TObjectPathReader(text, position, fNamespace, fContext).ReadPath(*target);
}

}  // namespace NORXVYR20
