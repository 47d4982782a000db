// Writing the text form of an object path: the class name, then "." and the key bindings in name
// order, each as name="value" separated by ",". Double quotes and backslashes in a value are
// escaped with a backslash, except in a reference value, which is written as its own path as it
// stands (the reader takes the first quote after it as the end).
#include <vyrcore/CIMReferenceImpl.h>

#include <vyrcore/CIMObjectModel.h>

namespace NORXVYR20 {

namespace {

std::string Escaped(const std::string& text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (char c : text) {
    if (c == '"' || c == '\\') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

std::string KeyValueText(const TCIMValue& value) {
  return value.IsReference() ? value.ToString(10) : Escaped(value.ToString(10));
}

}  // namespace

std::string TCIMReferenceImpl::GetPath() const {
  TCIMContext context;
  std::string path = fClass->GetName(context);
  if (fKeyBindings.empty()) return path;
  path += '.';
  for (const auto& binding : fKeyBindings)
    path += binding.first + "=\"" + KeyValueText(binding.second) + "\",";
  path.pop_back();
  return path;
}

}  // namespace NORXVYR20
