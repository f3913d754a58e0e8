#include <fcntl.h>
#include <unistd.h>

#include "VantrelExceptions.h"
#include "VantrelFileSystem.h"
#include "VantrelPaths.h"

std::string TVantrelAbstractFile::Name() const {
  return TVantrelFilePath::GetFileName(FPath);
}

std::string TVantrelAbstractFile::DirectoryName() const {
  return TVantrelFilePath::GetDirectoryName(FPath);
}

bool TVantrelFile::Exists() const {
  return TVantrelFileSystem::Exists(FPath) && !TVantrelFileSystem::IsDirectory(FPath);
}

void TVantrelFile::Create() {
  constexpr unsigned newFileMode = 0666;
  const int descriptor = ::open(FPath.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, newFileMode);
  if (descriptor < 0) throw EVantrelFileSystemError();
  ::close(descriptor);
}

void TVantrelFile::Delete() {
  TVantrelFileSystem::DeleteFile(FPath);
}

void TVantrelFile::Move(const std::string& target) {
  TVantrelFileSystem::MoveFile(FPath, target);
  FPath = target;
}

void TVantrelFile::Copy(const std::string& target, bool failIfExists) const {
  TVantrelFileSystem::CopyFile(FPath, target, failIfExists);
}

std::string TVantrelFile::Extension() const {
  return TVantrelFilePath::GetExtension(FPath);
}

void TVantrelDirectory::Create() {
  TVantrelFileSystem::CreateDirectory(FPath);
}

void TVantrelDirectory::Delete() {
  TVantrelFileSystem::DeleteDirectory(FPath, true);
}

void TVantrelDirectory::Move(const std::string& target) {
  TVantrelFileSystem::MoveDirectory(FPath, target);
  FPath = target;
}

void TVantrelDirectory::Clear() {
  TVantrelFileSystem::ClearDirectory(FPath);
}

std::vector<std::string> TVantrelDirectory::Files(const std::string& mask, bool recursive) const {
  return TVantrelFileSystem::GetFiles(FPath, mask, recursive);
}
