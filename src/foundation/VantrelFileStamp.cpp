#include "VantrelFileStamp.h"

#include <fcntl.h>
#include <openssl/evp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <memory>

namespace {
constexpr std::size_t BlockSize = 128 * 1024;

using TDigestContext = std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)>;

std::string DigestOf(std::span<const std::uint8_t> bytes) {
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned size = 0;
  if (EVP_Digest(bytes.data(), bytes.size(), digest.data(), &size, EVP_sha256(), nullptr) != 1) return {};
  return {digest.begin(), digest.begin() + size};
}

/// Empty if the file cannot be read. Leaves the descriptor's position alone.
std::string DigestOf(int descriptor) {
  const TDigestContext context(EVP_MD_CTX_new(), EVP_MD_CTX_free);
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned size = 0;
  const std::unique_ptr<std::uint8_t[]> block(new std::uint8_t[BlockSize]);
  if (context == nullptr || EVP_DigestInit_ex(context.get(), EVP_sha256(), nullptr) != 1) return {};
  for (off_t at = 0;;) {
    const auto part = ::pread(descriptor, block.get(), BlockSize, at);
    if (part < 0 && errno == EINTR) continue;
    if (part < 0) return {};
    if (part == 0) break;
    if (EVP_DigestUpdate(context.get(), block.get(), static_cast<std::size_t>(part)) != 1) return {};
    at += part;
  }
  if (EVP_DigestFinal_ex(context.get(), digest.data(), &size) != 1) return {};
  return {digest.begin(), digest.begin() + size};
}
}  // namespace

TVantrelFileStamp::TIdentity TVantrelFileStamp::IdentityOf(int descriptor) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) return {};
  return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

TVantrelFileStamp::TVantrelFileStamp(const TVantrelFileHandle& file)
    : FFileName(file.FileName()), FIdentity(IdentityOf(file.Descriptor())), FRights(TVantrelFileRights::Of(file)) {}

TVantrelFileStamp::TVantrelFileStamp(const TVantrelFileHandle& file, std::span<const std::uint8_t> bytes)
    : TVantrelFileStamp(file) {
  FDigest = DigestOf(bytes);
}

void TVantrelFileStamp::Seal(const TVantrelFileHandle& file) {
  FDigest = DigestOf(file.Descriptor());
  if (IdentityOf(file.Descriptor()) != FIdentity) FDigest.clear();
}

bool TVantrelFileStamp::IsOf(const std::string& fileName) const {
  std::error_code error;
  return !FFileName.empty() && (FFileName == fileName || std::filesystem::equivalent(FFileName, fileName, error));
}

bool TVantrelFileStamp::IsOutdated() const {
  if (FFileName.empty()) return false;
  const int descriptor = ::open(FFileName.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
  if (descriptor < 0) return std::filesystem::exists(std::filesystem::path(FFileName));
  const bool isOutdated = IdentityOf(descriptor) != FIdentity && (FDigest.empty() || DigestOf(descriptor) != FDigest);
  ::close(descriptor);
  return isOutdated;
}
