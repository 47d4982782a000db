// Writing the text form of an object path: the class name, then "." and the key bindings in name
// order, each as name="value" separated by ",". Double quotes and backslashes in a value are
// escaped with a backslash, except in a reference value, which is written as its own path as it
// stands (the reader takes the first quote after it as the end).
#include <vyrcore/CIMReferenceImpl.h>

#include <vyrcore/CIMObjectModel.h>

namespace NORXVYR20 {

namespace {

// text with a backslash before every double quote and backslash, appended a stretch at a time.
void AppendEscaped(std::string& path, const std::string& text) {
  const char* stretch = text.data();
  const char* const end = stretch + text.size();
  for (const char* c = stretch; c != end; ++c) {
    if (*c != '"' && *c != '\\') continue;
    path.append(stretch, static_cast<std::size_t>(c - stretch));
    path += '\\';
    stretch = c;
  }
  path.append(stretch, static_cast<std::size_t>(end - stretch));
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
    path += binding.first;
    path += "=\"";
    const TCIMValue& value = binding.second;
    if (value.IsReference())
      path += value.ToString(10);
    else
      AppendEscaped(path, value.ToString(10));
    path += "\",";
  }
  path.pop_back();
  return path;
}

}  // namespace NORXVYR20
