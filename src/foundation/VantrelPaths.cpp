#include "VantrelPaths.h"

namespace {

constexpr std::string_view Delimiters = "\\/:";

/// Index of the first character of the file name.
std::size_t NameStart(std::string_view path) {
  const auto last = path.find_last_of(Delimiters);
  return last == std::string_view::npos ? 0 : last + 1;
}

/// Index of the point before the extension, or npos.
std::size_t ExtensionPoint(std::string_view path) {
  const auto point = path.rfind('.');
  return point == std::string_view::npos || point < NameStart(path) ? std::string_view::npos : point;
}

}  // namespace

std::string TVantrelFilePath::GetExtension(std::string_view path) {
  const auto point = ExtensionPoint(path);
  return point == std::string_view::npos ? std::string() : std::string(path.substr(point + 1));
}

std::string TVantrelFilePath::AddExtension(std::string_view path, std::string_view extension) {
  std::string result(path);
  if (!path.empty() && !extension.empty()) result.append(".").append(extension);
  return result;
}

std::string TVantrelFilePath::RemoveExtension(std::string_view path) {
  return std::string(path.substr(0, ExtensionPoint(path)));
}

std::string TVantrelFilePath::ChangeExtension(std::string_view path, std::string_view extension) {
  return AddExtension(RemoveExtension(path), extension);
}

std::string TVantrelFilePath::GetFileName(std::string_view path) { return std::string(path.substr(NameStart(path))); }

std::string TVantrelFilePath::GetFileNameWithoutExtension(std::string_view path) {
  return RemoveExtension(GetFileName(path));
}

std::string TVantrelFilePath::GetDirectoryName(std::string_view path) {
  auto directory = path.substr(0, NameStart(path));
  const bool droppable = directory.size() > 1 && directory.back() != ':' &&
                         Delimiters.find(directory[directory.size() - 2]) == std::string_view::npos;
  if (droppable) directory.remove_suffix(1);
  return std::string(directory);
}
