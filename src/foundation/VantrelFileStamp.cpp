#include "VantrelFileStamp.h"

#include <openssl/evp.h>

#include <array>
#include <memory>

#include "SystemFolders.h"

namespace {
constexpr std::size_t BlockSize = 128 * 1024;

using TDigestContext = std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)>;

std::string DigestOf(std::span<const std::uint8_t> bytes) {
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned size = 0;
  if (EVP_Digest(bytes.data(), bytes.size(), digest.data(), &size, EVP_sha256(), nullptr) != 1) return {};
  return {digest.begin(), digest.begin() + size};
}

/// Empty if the file cannot be read. Leaves its position alone.
std::string DigestOf(const System::TFile& file) {
  const TDigestContext context(EVP_MD_CTX_new(), EVP_MD_CTX_free);
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned size = 0;
  const std::unique_ptr<std::uint8_t[]> block(new std::uint8_t[BlockSize]);
  if (context == nullptr || EVP_DigestInit_ex(context.get(), EVP_sha256(), nullptr) != 1) return {};
  for (std::int64_t at = 0;;) {
    auto part = file.ReadAt(at, block.get(), BlockSize);
    if (!part) return {};
    if (*part == 0) break;
    if (EVP_DigestUpdate(context.get(), block.get(), static_cast<std::size_t>(*part)) != 1) return {};
    at += *part;
  }
  if (EVP_DigestFinal_ex(context.get(), digest.data(), &size) != 1) return {};
  return {digest.begin(), digest.begin() + size};
}
}  // namespace

TVantrelFileStamp::TVantrelFileStamp(const TVantrelFileHandle& file)
    : FFileName(file.FileName()), FState(file.File().State()), FRights(file.File().Rights()) {}

TVantrelFileStamp::TVantrelFileStamp(const TVantrelFileHandle& file, std::span<const std::uint8_t> bytes)
    : TVantrelFileStamp(file) {
  FDigest = DigestOf(bytes);
}

void TVantrelFileStamp::Seal(const TVantrelFileHandle& file) {
  FDigest = DigestOf(file.File());
  if (file.File().State() != FState) FDigest.clear();
}

bool TVantrelFileStamp::IsOf(const std::string& fileName) const {
  return !FFileName.empty() && (FFileName == fileName || System::MayBeSameFile(FFileName, fileName));
}

bool TVantrelFileStamp::IsOutdated() const {
  if (FFileName.empty()) return false;
  auto file = System::TFile::OpenUnheld(FFileName);
  if (file) return file->State() != FState && (FDigest.empty() || DigestOf(*file) != FDigest);
  const auto code = static_cast<TVantrelErrorCode>(file.Code());
  return code != TVantrelErrorCode::FileNotFound && code != TVantrelErrorCode::PathNotFound;
}
