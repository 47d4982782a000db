// Fuzz target: a CIM-XML document, plain or gzip-compressed, read by TCIMXml::Load into a fresh
// in-memory namespace.
//
// Checks beyond "no crash":
// - a refused document throws one of the statuses the reader documents (kVYRStatusInvalidFormat,
//   kVYRStatusNotSupported, kVYRStatusTypeMismatch, kVYRStatusUnknownClass, the two gzip
//   statuses) or one the in-memory namespace throws for what it will not hold
//   (kVYRStatusAlreadyExists, kVYRStatusInvalidOpSequence, kVYRStatusInvalidReference,
//   kVYRStatusInvalidProperty, kVYRStatusNotFound, kVYRStatusInvalidCIMName for an empty name);
//   no other status, no other exception;
// - whatever was loaded, up to the refusal, saves without refusal: the reader takes nothing the
//   writer cannot write;
// - an accepted document saves to a text that loads into an equal namespace: saving that one again
//   gives the same text. The one refusal allowed on that reload is kVYRStatusUnknownClass, when a
//   class declared a reference to an association class written after it (saving follows the copy's
//   order, associations last, as the copy does).
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include <vyrcore/CIMXml.h>
#include <vyrcore/vyrmemory.h>

#include "FuzzCheck.h"

using namespace NORXVYR20;

namespace {

#define VYR_FUZZ_XML_REFUSALS                                                                   \
  {                                                                                              \
    kVYRStatusInvalidFormat, kVYRStatusNotSupported, kVYRStatusTypeMismatch,                     \
        kVYRStatusUnknownClass, kVYRStatusInvalidGzipFile, kVYRStatusCorruptGzipFile,            \
        kVYRStatusAlreadyExists, kVYRStatusInvalidOpSequence, kVYRStatusInvalidReference,        \
        kVYRStatusInvalidProperty, kVYRStatusNotFound, kVYRStatusInvalidCIMName                  \
  }

std::string Saved(const boost::shared_ptr<ICIMNamespace>& space) {
  std::ostringstream out;
  TCIMXml::Save(space, out, false);
  return out.str();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const boost::shared_ptr<ICIMNamespace> first = TMemoryNamespace::Create("root/fuzz");
  std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
  const bool accepted =
      vyrfuzz::Accepts("loading a document", VYR_FUZZ_XML_REFUSALS, [&] { TCIMXml::Load(in, first); });
  std::string text;
  VYR_FUZZ_CHECK(vyrfuzz::Accepts("saving what was loaded", {}, [&] { text = Saved(first); }));
  if (!accepted) return 0;
  const boost::shared_ptr<ICIMNamespace> second = TMemoryNamespace::Create("root/fuzz");
  std::istringstream again(text);
  if (!vyrfuzz::Accepts("loading the saved text", {kVYRStatusUnknownClass},
                        [&] { TCIMXml::Load(again, second); }))
    return 0;
  VYR_FUZZ_CHECK(Saved(second) == text);
  return 0;
}
