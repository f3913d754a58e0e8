#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

/// A folder of its own for one test; goes with it.
class TempFolder {
 public:
  TempFolder() : FPath(NextPath()) {
    // What an earlier program of the same number left behind is passed over.
    while (!std::filesystem::create_directory(FPath)) FPath = NextPath();
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::permissions(FPath, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(FPath, ignored);
  }

  const std::filesystem::path& Path() const { return FPath; }
  std::string operator/(std::string_view name) const { return (FPath / name).string(); }
  std::size_t FileCount() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(FPath), {}));
  }

 private:
  static std::filesystem::path NextPath() {
    static int count = 0;
    return std::filesystem::temp_directory_path() /
           ("mytessaron-test-" + std::to_string(::getpid()) + "-" + std::to_string(++count));
  }

  std::filesystem::path FPath;
};

inline std::string ReadFileText(const std::filesystem::path& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteFileText(const std::filesystem::path& name, std::string_view text) {
  std::ofstream(name, std::ios::binary) << text;
}
