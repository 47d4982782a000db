#include "xml/XmlTree.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>

#include <cstring>
#include <exception>
#include <memory>
#include <string_view>
#include <unordered_map>

#include "core/Fail.h"

namespace NORXVYR20 {
namespace detail {

namespace {

// The children of a DECLGROUP are the objects handed out whole.
constexpr int kObjectDepth = 4;
// Deeper than any document the writer makes (64 nested references take about 200 levels). The
// push parser does not apply libxml2's own depth bound, so the reader does.
constexpr int kMaxDepth = 256;

const std::pair<const char*, EXmlElement> kElements[] = {
    {"CIM", EXmlElement::kCIM},
    {"DECLARATION", EXmlElement::kDeclaration},
    {"DECLGROUP", EXmlElement::kDeclGroup},
    {"LOCALNAMESPACEPATH", EXmlElement::kLocalNamespacePath},
    {"NAMESPACE", EXmlElement::kNamespace},
    {"QUALIFIER.DECLARATION", EXmlElement::kQualifierDeclaration},
    {"SCOPE", EXmlElement::kScope},
    {"VALUE", EXmlElement::kValue},
    {"VALUE.ARRAY", EXmlElement::kValueArray},
    {"VALUE.NULL", EXmlElement::kValueNull},
    {"VALUE.REFERENCE", EXmlElement::kValueReference},
    {"VALUE.OBJECT", EXmlElement::kValueObject},
    {"CLASS", EXmlElement::kClass},
    {"INSTANCE", EXmlElement::kInstance},
    {"QUALIFIER", EXmlElement::kQualifier},
    {"PROPERTY", EXmlElement::kProperty},
    {"PROPERTY.ARRAY", EXmlElement::kPropertyArray},
    {"PROPERTY.REFERENCE", EXmlElement::kPropertyReference},
    {"METHOD", EXmlElement::kMethod},
    {"PARAMETER", EXmlElement::kParameter},
    {"PARAMETER.REFERENCE", EXmlElement::kParameterReference},
    {"PARAMETER.ARRAY", EXmlElement::kParameterArray},
    {"PARAMETER.REFARRAY", EXmlElement::kParameterRefArray},
    {"INSTANCENAME", EXmlElement::kInstanceName},
    {"KEYBINDING", EXmlElement::kKeyBinding},
    {"KEYVALUE", EXmlElement::kKeyValue},
    {"CLASSNAME", EXmlElement::kClassName}};

EXmlElement ElementOf(std::string_view tag) {
  static const std::unordered_map<std::string_view, EXmlElement> table = [] {
    std::unordered_map<std::string_view, EXmlElement> t;
    for (const auto& entry : kElements) t.emplace(entry.first, entry.second);
    return t;
  }();
  const auto found = table.find(tag);
  return found == table.end() ? EXmlElement::kOther : found->second;
}

std::string_view View(const xmlChar* text) {
  return std::string_view(reinterpret_cast<const char*>(text));
}

// Versions "2" and "2.<anything>" are the ones this reader knows.
bool IsVersion2(const std::string* version) {
  return version->size() >= 1 && (*version)[0] == '2' &&
         (version->size() == 1 || (*version)[1] == '.');
}

bool IsBlank(const char* text, int length) {
  for (int i = 0; i < length; ++i)
    if (text[i] != ' ' && text[i] != '\t' && text[i] != '\n' && text[i] != '\r') return false;
  return true;
}

// libxml2 reports some failures (input that does not decode, say) on its generic error channel as
// well, whose default prints to standard error; the reader takes every error from the parser
// context instead. The channel is silenced while a document is read and handed back afterwards,
// so a host's own handler is left as it was.
class TQuietGenericErrors {
 public:
  TQuietGenericErrors() : fHandler(xmlGenericError), fContext(xmlGenericErrorContext) {
    xmlSetGenericErrorFunc(nullptr, &Ignore);
  }
  ~TQuietGenericErrors() { xmlSetGenericErrorFunc(fContext, fHandler); }
  TQuietGenericErrors(const TQuietGenericErrors&) = delete;
  TQuietGenericErrors& operator=(const TQuietGenericErrors&) = delete;

 private:
  static void Ignore(void*, const char*, ...) {}

  xmlGenericErrorFunc fHandler;
  void* fContext;
};

class TSaxReader {
 public:
  explicit TSaxReader(const std::function<void(const TXmlNode&)>& onObject)
      : fOnObject(onObject) {}

  void Parse(TXmlInput& input) {
    xmlInitParser();
    const TQuietGenericErrors quiet;
    xmlSAXHandler handler;
    std::memset(&handler, 0, sizeof handler);
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElementNs = &TSaxReader::Start;
    handler.endElementNs = &TSaxReader::End;
    handler.characters = &TSaxReader::Characters;
    handler.cdataBlock = &TSaxReader::Characters;
    handler.entityDecl = &TSaxReader::EntityDeclaration;
    handler.reference = &TSaxReader::Reference;
    // Errors are taken from the context after each chunk; nothing is printed.
    handler.serror = [](void*, xmlErrorPtr) {};
    std::unique_ptr<xmlParserCtxt, void (*)(xmlParserCtxtPtr)> parser(
        xmlCreatePushParserCtxt(&handler, this, nullptr, 0, nullptr), &FreeParser);
    if (!parser) Fail(kVYRStatusOutOfMemory);
    fParser = parser.get();
    // No DTD loading, no entity substitution, no network: only what the document holds is read.
    xmlCtxtUseOptions(fParser, XML_PARSE_NONET);
    char buffer[1 << 16];
    for (std::size_t size; (size = input.Read(buffer, sizeof buffer)) > 0;) {
      Check(xmlParseChunk(fParser, buffer, static_cast<int>(size), 0));
    }
    Check(xmlParseChunk(fParser, nullptr, 0, 1));
  }

 private:
  static TSaxReader& Of(void* context) { return *static_cast<TSaxReader*>(context); }

  // An internal subset that declares entities makes libxml2 build a document of its own, even
  // in SAX mode, and the context does not free it.
  static void FreeParser(xmlParserCtxtPtr parser) {
    if (parser->myDoc) xmlFreeDoc(parser->myDoc);
    parser->myDoc = nullptr;
    xmlFreeParserCtxt(parser);
  }

  int Line() const { return xmlSAX2GetLineNumber(fParser); }

  // A callback's failure cannot cross the parser's C frames: it is kept, the parser stopped, and
  // the failure thrown again once the parser has returned.
  template <typename Body>
  void Guard(Body&& body) {
    if (fError) return;
    try {
      body();
    } catch (...) {
      fError = std::current_exception();
      xmlStopParser(fParser);
    }
  }

  // parsed: what xmlParseChunk answered. Text that does not decode in the declared encoding stops
  // the parser with an error code while the context may still call the document well-formed.
  void Check(int parsed) {
    if (fError) std::rethrow_exception(fError);
    if (!fParser->wellFormed || parsed != XML_ERR_OK) {
      const xmlError* error = xmlCtxtGetLastError(fParser);
      std::string message = error && error->message ? error->message
                            : parsed == XML_ERR_INVALID_ENCODING
                                ? "the text does not decode in its declared encoding"
                                : "libxml2 error " + std::to_string(parsed);
      while (!message.empty() && (message.back() == '\n' || message.back() == ' '))
        message.pop_back();
      FailAtLine(kVYRStatusInvalidFormat, error ? error->line : Line(),
                 "not well-formed XML: " + message);
    }
  }

  static void Start(void* context, const xmlChar* localname, const xmlChar* prefix,
                    const xmlChar*, int, const xmlChar**, int count, int,
                    const xmlChar** attributes) {
    TSaxReader& reader = Of(context);
    reader.Guard([&] {
      TXmlNode node;
      node.fLine = reader.Line();
      const std::string_view name = View(localname);
      node.fElement = prefix ? EXmlElement::kOther : ElementOf(name);
      if (node.fElement == EXmlElement::kOther)
        node.fTag = prefix ? std::string(View(prefix)) + ":" + std::string(name) : std::string(name);
      node.fAttributes.reserve(static_cast<std::size_t>(count));
      for (int i = 0; i < count; ++i, attributes += 5) {
        std::string attributeName(View(attributes[0]));
        if (attributes[1]) attributeName = std::string(View(attributes[1])) + ":" + attributeName;
        node.fAttributes.emplace_back(
            std::move(attributeName),
            std::string(reinterpret_cast<const char*>(attributes[3]),
                        static_cast<std::size_t>(attributes[4] - attributes[3])));
      }
      reader.Open(std::move(node));
    });
  }

  static void End(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
    TSaxReader& reader = Of(context);
    reader.Guard([&] { reader.Close(); });
  }

  static void Characters(void* context, const xmlChar* text, int length) {
    TSaxReader& reader = Of(context);
    reader.Guard([&] {
      const char* chars = reinterpret_cast<const char*>(text);
      TXmlNode* node = reader.fOpen.empty() ? nullptr : reader.fOpen.back();
      if (node && (node->fElement == EXmlElement::kValue ||
                   node->fElement == EXmlElement::kKeyValue)) {
        node->fText.append(chars, static_cast<std::size_t>(length));
      } else if (!IsBlank(chars, length)) {
        FailAtLine(kVYRStatusInvalidFormat, reader.Line(),
                   "text where only elements may stand" +
                       (node ? " (inside " + node->Tag() + ")" : std::string()));
      }
    });
  }

  static void EntityDeclaration(void* context, const xmlChar* name, int, const xmlChar*,
                                const xmlChar*, xmlChar*) {
    TSaxReader& reader = Of(context);
    reader.Guard([&] {
      FailAtLine(kVYRStatusNotSupported, reader.Line(),
                 "entity declarations are not accepted (entity " + std::string(View(name)) + ")");
    });
  }

  static void Reference(void* context, const xmlChar* name) {
    TSaxReader& reader = Of(context);
    reader.Guard([&] {
      FailAtLine(kVYRStatusNotSupported, reader.Line(),
                 "entity references are not accepted (&" + std::string(View(name)) + ";)");
    });
  }

  void Open(TXmlNode node) {
    if (++fDepth > kMaxDepth)
      FailAtLine(kVYRStatusNotSupported, node.fLine,
                 "elements nested more than " + std::to_string(kMaxDepth) + " deep");
    if (fDepth < kObjectDepth) {
      Frame(node);
      return;
    }
    if (fDepth == kObjectDepth) {
      fObject = std::move(node);
      fOpen.assign(1, &fObject);
      return;
    }
    // The parent only gains a child once its previous child was closed, so the pointers held in
    // fOpen stay valid.
    TXmlNode* parent = fOpen.back();
    parent->fChildren.push_back(std::move(node));
    fOpen.push_back(&parent->fChildren.back());
  }

  void Close() {
    if (fDepth == kObjectDepth) {
      fOpen.clear();
      fOnObject(fObject);
      fObject = TXmlNode();
    } else if (fDepth > kObjectDepth) {
      fOpen.pop_back();
    }
    --fDepth;
  }

  // The three elements above the objects.
  void Frame(const TXmlNode& node) {
    const std::string tag = node.Tag();
    if (fDepth == 1) {
      if (node.fElement != EXmlElement::kCIM)
        FailAtLine(kVYRStatusInvalidFormat, node.fLine,
                   "the root element is " + tag + ", not CIM");
      for (const char* attribute : {"CIMVERSION", "DTDVERSION"}) {
        const std::string* version = node.Attribute(attribute);
        if (!version)
          FailAtLine(kVYRStatusInvalidFormat, node.fLine,
                     std::string("CIM has no ") + attribute + " attribute");
        if (!IsVersion2(version))
          FailAtLine(kVYRStatusNotSupported, node.fLine,
                     std::string(attribute) + " " + *version + " is not supported (2.x is)");
      }
    } else if (fDepth == 2 && node.fElement != EXmlElement::kDeclaration) {
      FailAtLine(tag == "MESSAGE" ? kVYRStatusNotSupported : kVYRStatusInvalidFormat, node.fLine,
                 tag + " where DECLARATION must stand: only declarations are read");
    } else if (fDepth == 3 && node.fElement != EXmlElement::kDeclGroup) {
      FailAtLine(tag.rfind("DECLGROUP.", 0) == 0 ? kVYRStatusNotSupported
                                                  : kVYRStatusInvalidFormat,
                 node.fLine, tag + " where DECLGROUP must stand: only DECLGROUP is read");
    }
  }

  const std::function<void(const TXmlNode&)>& fOnObject;
  xmlParserCtxtPtr fParser = nullptr;
  int fDepth = 0;
  TXmlNode fObject;
  std::vector<TXmlNode*> fOpen;  // the open elements of the current object, innermost last
  std::exception_ptr fError;
};

}  // namespace

const std::string* TXmlNode::Attribute(const char* name) const {
  const std::string_view wanted(name);
  for (const auto& attribute : fAttributes)
    if (std::string_view(attribute.first) == wanted) return &attribute.second;
  return nullptr;
}

std::string TXmlNode::Tag() const {
  if (fElement == EXmlElement::kOther) return fTag;
  for (const auto& entry : kElements)
    if (entry.second == fElement) return entry.first;
  return fTag;
}

void ParseCIMXml(TXmlInput& input, const std::function<void(const TXmlNode&)>& onObject) {
  TSaxReader(onObject).Parse(input);
}

void FailAtLine(TVYRStatusCode status, int line, const std::string& what) {
  FailWithLog(status, "TCIMXml|Load: line " + std::to_string(line) + ": " + what);
}

}  // namespace detail
}  // namespace NORXVYR20
