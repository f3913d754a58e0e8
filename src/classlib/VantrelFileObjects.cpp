#include "VantrelFileObjects.h"

#include "VantrelPaths.h"

std::string TVantrelAbstractFile::Name() const {
  return TVantrelFilePath::GetFileName(FPath);
}

bool TVantrelFile::Exists() const {
  return TVantrelFileSystem::Exists(FPath) && !TVantrelFileSystem::IsDirectory(FPath);
}

void TVantrelFile::Delete() {
  TVantrelFileSystem::DeleteFile(FPath);
}

void TVantrelFile::Move(const std::string& target) {
  TVantrelFileSystem::MoveFile(FPath, target);
  FPath = target;
}

std::string TVantrelFile::Extension() const {
  return TVantrelFilePath::GetExtension(FPath);
}

void TVantrelDirectory::Delete() {
  TVantrelFileSystem::DeleteDirectory(FPath, true);
}

void TVantrelDirectory::Move(const std::string& target) {
  TVantrelFileSystem::MoveDirectory(FPath, target);
  FPath = target;
}

std::vector<std::string> TVantrelDirectory::Files(const std::string& mask, bool recursive) const {
  return TVantrelFileSystem::GetFiles(FPath, mask, recursive);
}
