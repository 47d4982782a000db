// Writing the text form of an object path: the class name, then "." and the key bindings in name
// order, each as name="value" separated by ",". Double quotes and backslashes in a value are
// escaped with a backslash, except in a reference value, which is written as its own path as it
// stands (the reader takes the first quote after it as the end).
#include <vyrcore/CIMReferenceImpl.h>

#include <algorithm>

#include <vyrcore/CIMObjectModel.h>

namespace NORXVYR20 {

namespace {

// Copies text to out with a backslash before every double quote and backslash; answers the end.
char* CopyEscaped(const std::string& text, char* out) {
  for (char c : text) {
    if (c == '"' || c == '\\') *out++ = '\\';
    *out++ = c;
  }
  return out;
}

// Room for a binding whose value text is of a usual length (a number, a short name); longer
// ones make the path grow as it would anyway.
const std::string::size_type kUsualValueLength = 24;

}  // namespace

std::string TCIMReferenceImpl::GetPath() const {
  TCIMContext context;
  if (fKeyBindings.empty()) return fClass->GetName(context);
  const std::string className = fClass->GetName(context);
  std::string::size_type length = className.size();
  for (const auto& binding : fKeyBindings)
    length += binding.first.size() + 4 + kUsualValueLength;
  std::string path;
  path.reserve(length);
  path += className;
  path += '.';
  for (const auto& binding : fKeyBindings) {
    const TCIMValue& value = binding.second;
    const std::string text = value.ToString(10);
    // name="text", written in place: room for the text escaped throughout, then cut to size.
    const std::string::size_type start = path.size();
    path.resize(start + binding.first.size() + 4 + 2 * text.size());
    char* out = &path[start];
    out = std::copy(binding.first.begin(), binding.first.end(), out);
    *out++ = '=';
    *out++ = '"';
    out = value.IsReference() ? std::copy(text.begin(), text.end(), out) : CopyEscaped(text, out);
    *out++ = '"';
    *out++ = ',';
    path.resize(static_cast<std::string::size_type>(out - path.data()));
  }
  path.pop_back();
  return path;
}

}  // namespace NORXVYR20
