#pragma once

#include "VantrelFileSystem.h"

/// A file or directory by its path. Failures raise EVantrelFileSystemError.
class TVantrelAbstractFile {
 public:
  explicit TVantrelAbstractFile(std::string path) : FPath(std::move(path)) {}
  virtual ~TVantrelAbstractFile() = default;

  const std::string& Path() const { return FPath; }
  std::string Name() const;

  /// True if the path leads to what the class stands for.
  virtual bool Exists() const = 0;
  virtual void Delete() = 0;
  /// The object has the new path afterwards.
  virtual void Move(const std::string& target) = 0;

 protected:
  std::string FPath;
};

/// A file by its path.
class TVantrelFile final : public TVantrelAbstractFile {
 public:
  using TVantrelAbstractFile::TVantrelAbstractFile;

  bool Exists() const override;
  void Delete() override;
  void Move(const std::string& target) override;
  std::string Extension() const;
  std::int64_t Size() const { return TVantrelFileSystem::GetSize(FPath); }
};

/// A directory by its path.
class TVantrelDirectory final : public TVantrelAbstractFile {
 public:
  using TVantrelAbstractFile::TVantrelAbstractFile;

  bool Exists() const override { return TVantrelFileSystem::IsDirectory(FPath); }
  /// With everything in it.
  void Delete() override;
  void Move(const std::string& target) override;
  std::vector<std::string> Files(const std::string& mask = "*", bool recursive = false) const;
};
