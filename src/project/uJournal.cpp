#include "uJournal.h"

#include <openssl/evp.h>
#include <openssl/rand.h>

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <memory>

#include "ProjectTexts.h"
#include "SystemFolders.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"

namespace {

using TBytes = std::vector<std::uint8_t>;
using namespace std::chrono_literals;

constexpr auto Pause = 2s, Patience = 10s;
constexpr std::string_view Signature = "MTJ1";
constexpr const char* Ending = ".eingaben";
constexpr const char* KeyName = "/schluessel";
constexpr std::size_t KeyBytes = 32, NonceBytes = 12, TagBytes = 16, SizeBytes = 4;

struct TContextDeleter {
  void operator()(EVP_CIPHER_CTX* context) const { EVP_CIPHER_CTX_free(context); }
};
using TContext = std::unique_ptr<EVP_CIPHER_CTX, TContextDeleter>;

const std::uint8_t* BytesOf(std::string_view text) {
  return reinterpret_cast<const std::uint8_t*>(text.data());
}

/// Size, nonce, ciphertext and tag. The place in the file is bound to the frame, so that none can be moved.
TBytes Enciphered(const TBytes& plain, std::string_view key, std::int64_t place) {
  TBytes frame(SizeBytes + NonceBytes + plain.size() + TagBytes);
  const auto size = static_cast<std::uint32_t>(frame.size() - SizeBytes);
  for (std::size_t i = 0; i < SizeBytes; ++i) frame[i] = static_cast<std::uint8_t>(size >> (8 * i));
  auto* nonce = frame.data() + SizeBytes;
  auto* text = nonce + NonceBytes;
  const TContext context(EVP_CIPHER_CTX_new());
  int written = 0;
  const bool ok = RAND_bytes(nonce, NonceBytes) == 1 &&
                  EVP_EncryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr, BytesOf(key), nonce) == 1 &&
                  EVP_EncryptUpdate(context.get(), nullptr, &written, reinterpret_cast<const std::uint8_t*>(&place),
                                    sizeof(place)) == 1 &&
                  EVP_EncryptUpdate(context.get(), text, &written, plain.data(), static_cast<int>(plain.size())) == 1 &&
                  EVP_EncryptFinal_ex(context.get(), text + written, &written) == 1 &&
                  EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_GCM_GET_TAG, TagBytes, text + plain.size()) == 1;
  if (!ok) throw EVantrelException(ResourceText(ProjectTexts::NoJournal));
  return frame;
}

/// Nothing for bytes that the key does not open, or that stand elsewhere.
std::optional<TBytes> Deciphered(std::span<const std::uint8_t> frame, std::string_view key, std::int64_t place) {
  if (frame.size() < NonceBytes + TagBytes) return std::nullopt;
  TBytes plain(frame.size() - NonceBytes - TagBytes);
  const auto text = frame.subspan(NonceBytes);
  TBytes tag(text.end() - TagBytes, text.end());
  const TContext context(EVP_CIPHER_CTX_new());
  int written = 0;
  const bool ok =
      EVP_DecryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr, BytesOf(key), frame.data()) == 1 &&
      EVP_DecryptUpdate(context.get(), nullptr, &written, reinterpret_cast<const std::uint8_t*>(&place),
                        sizeof(place)) == 1 &&
      EVP_DecryptUpdate(context.get(), plain.data(), &written, text.data(), static_cast<int>(plain.size())) == 1 &&
      EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_GCM_SET_TAG, TagBytes, tag.data()) == 1 &&
      EVP_DecryptFinal_ex(context.get(), plain.data() + written, &written) == 1;
  return ok ? std::optional(plain) : std::nullopt;
}

template <class TWrite>
TBytes Packed(TWrite write) {
  TVantrelMemoryStream stream;
  TVantrelStreamWriter writer(stream, 0);
  write(writer);
  const auto bytes = stream.Bytes();
  return {bytes.begin(), bytes.end()};
}

TBytes Packed(const TJournalHead& head) {
  return Packed([&](TVantrelWriter& writer) {
    writer.WriteDouble(head.Begun);
    for (const auto* text : {&head.Path, &head.Digest, &head.Password}) writer.WriteUtf8String(*text);
  });
}

TJournalHead HeadIn(TVantrelReader& reader) {
  TJournalHead head{.Begun = reader.ReadDouble()};
  for (auto* text : {&head.Path, &head.Digest, &head.Password}) *text = reader.ReadUtf8String();
  return head;
}

std::optional<TBytes> ReadAll(System::TFile& file) {
  const auto size = file.Size();
  if (!size) return std::nullopt;
  TBytes bytes(static_cast<std::size_t>(*System::TResult<std::int64_t>(size)));
  auto read = file.ReadAt(0, bytes.data(), static_cast<std::int64_t>(bytes.size()));
  if (!read || *read != static_cast<std::int64_t>(bytes.size())) return std::nullopt;
  return bytes;
}

/// The key of the folder, empty where it cannot be read.
std::string KeyIn(const std::string& folder) {
  auto file = System::TFile::OpenUnheld(folder + KeyName);
  const auto bytes = file ? ReadAll(*file) : std::nullopt;
  return bytes && bytes->size() == KeyBytes ? std::string(bytes->begin(), bytes->end()) : std::string();
}

/// Makes it where there is none. Whoever comes second takes the first one's.
std::string MakeKey(const std::string& folder) {
  const auto lock = System::TFolderLock::Take(folder, 5s);
  if (auto key = KeyIn(folder); !key.empty()) return key;
  std::array<std::uint8_t, KeyBytes> key;
  if (RAND_bytes(key.data(), KeyBytes) != 1) return {};
  System::RemoveFile(folder + KeyName);
  if (System::MakeFile(folder + KeyName) != System::Success) return {};
  auto file = System::TFile::Open(folder + KeyName, TVantrelFileAccessMode::famShareDenyWrite,
                                  TVantrelFileOpenMode::fomOpenReadWrite);
  if (!file || file->Write(key.data(), KeyBytes).Code() != System::Success || file->Flush() != System::Success)
    return {};
  return {key.begin(), key.end()};
}

std::optional<TLeftJournal> ReadJournal(const std::string& fileName, std::string_view key) {
  auto file =
      System::TFile::Open(fileName, TVantrelFileAccessMode::famShareExclusive, TVantrelFileOpenMode::fomOpenReadWrite);
  const auto bytes = file ? ReadAll(*file) : std::nullopt;
  if (!bytes || bytes->size() < Signature.size() || !std::equal(Signature.begin(), Signature.end(), bytes->begin()))
    return std::nullopt;
  std::optional<TLeftJournal> journal;
  auto at = Signature.size();
  while (bytes->size() - at >= SizeBytes) {
    std::size_t size = 0;
    for (std::size_t i = 0; i < SizeBytes; ++i) size |= static_cast<std::size_t>((*bytes)[at + i]) << (8 * i);
    // The last one may be torn.
    if (bytes->size() - at - SizeBytes < size) break;
    const auto plain = Deciphered(std::span(*bytes).subspan(at + SizeBytes, size), key, static_cast<std::int64_t>(at));
    if (!plain) break;
    TVantrelMemoryStream stream(*plain);
    TVantrelStreamReader reader(stream, 0);
    if (!journal)
      journal = TLeftJournal{fileName, HeadIn(reader), {}};
    else
      journal->Entries.push_back(ReadEntry(reader));
    at += SizeBytes + size;
  }
  return journal;
}

}  // namespace

std::string FileDigest(const std::string& fileName) {
  auto file = System::TFile::OpenUnheld(fileName);
  const auto bytes = file ? ReadAll(*file) : std::nullopt;
  if (!bytes) return {};
  std::array<std::uint8_t, EVP_MAX_MD_SIZE> digest;
  unsigned size = 0;
  if (EVP_Digest(bytes->data(), bytes->size(), digest.data(), &size, EVP_sha256(), nullptr) != 1) return {};
  std::string text;
  for (unsigned i = 0; i < size; ++i) text += fmt::format("{:02x}", digest[i]);
  return text;
}

TJournal::TJournal(std::string folder, TJournalHead head)
    : FFolder(std::move(folder)), FHead(std::move(head)), FThread([this] { Work(); }) {}

TJournal::~TJournal() {
  {
    const std::lock_guard lock(FMutex);
    FStops = true;
  }
  FWake.notify_all();
  FThread.join();
}

void TJournal::Append(const TJournalEntry& entry) {
  auto bytes = Packed([&](TVantrelWriter& writer) { WriteEntry(writer, entry); });
  const std::lock_guard lock(FMutex);
  FPending.push_back(std::move(bytes));
  FWake.notify_all();
}

bool TJournal::Flush() {
  std::unique_lock lock(FMutex);
  FHurries = true;
  FWake.notify_all();
  FDone.wait(lock, [this] { return !FHurries; });
  return !FIsResting;
}

void TJournal::Discard() {
  Flush();
  const std::lock_guard lock(FMutex);
  FPending.clear();
  FFile.reset();
  if (!FFileName.empty()) System::RemoveFile(FFileName);
  FFileName.clear();
}

bool TJournal::IsResting() const {
  const std::lock_guard lock(FMutex);
  return FIsResting;
}

/// Until nothing has come for a while, or somebody hurries.
void TJournal::AwaitPause(std::unique_lock<std::mutex>& lock) {
  const auto end = std::chrono::steady_clock::now() + Patience;
  for (bool comes = true; comes && !FHurries && !FStops;) {
    const auto count = FPending.size();
    const auto until = std::min(std::chrono::steady_clock::now() + Pause, end);
    comes = FWake.wait_until(lock, until, [&] { return FHurries || FStops || FPending.size() != count; });
  }
}

void TJournal::Work() {
  std::unique_lock lock(FMutex);
  while (!FStops || !FPending.empty()) {
    FWake.wait(lock, [this] { return FHurries || FStops || !FPending.empty(); });
    AwaitPause(lock);
    auto frames = std::exchange(FPending, {});
    lock.unlock();
    const bool stored = frames.empty() || Store(frames);
    lock.lock();
    FIsResting = !stored;
    if (!stored) FPending.insert(FPending.begin(), frames.begin(), frames.end());
    // More may have come meanwhile.
    if (FPending.empty() || !stored) FHurries = false;
    FDone.notify_all();
    if (FStops && !stored) return;
  }
}

bool TJournal::Store(const std::vector<TBytes>& frames) {
  try {
    if (!FFile && !Begin()) return false;
    auto at = FSize;
    if (FFile->SetPosition(at) != System::Success) return false;
    for (const auto& plain : frames) {
      const auto frame = Enciphered(plain, FKey, at);
      const auto size = static_cast<std::int64_t>(frame.size());
      auto written = FFile->Write(frame.data(), size);
      if (!written || *written != size) return false;
      at += size;
    }
    if (FFile->Flush() != System::Success) return false;
    FSize = at;
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

bool TJournal::Begin() {
  std::error_code error;
  std::filesystem::create_directories(System::PathOf(FFolder), error);
  std::filesystem::permissions(System::PathOf(FFolder), std::filesystem::perms::owner_all, error);
  FKey = MakeKey(FFolder);
  if (error || FKey.empty()) return false;
  FHead.Digest = FileDigest(FHead.Path);
  const auto head = Packed(FHead);
  const auto name = System::FreeNameBeside(FFolder + "/" + FHead.Digest.substr(0, 16), Ending);
  if (System::MakeFile(name) != System::Success) return false;
  FFileName = name;
  auto file =
      System::TFile::Open(FFileName, TVantrelFileAccessMode::famShareExclusive, TVantrelFileOpenMode::fomOpenReadWrite);
  if (!file) return false;
  const auto frame = Enciphered(head, FKey, static_cast<std::int64_t>(Signature.size()));
  TBytes bytes(Signature.begin(), Signature.end());
  bytes.insert(bytes.end(), frame.begin(), frame.end());
  const auto size = static_cast<std::int64_t>(bytes.size());
  auto written = file->Write(bytes.data(), size);
  if (!written || *written != size) {
    System::RemoveFile(FFileName);
    return false;
  }
  FSize = size;
  FFile.emplace(std::move(*file));
  return true;
}

std::vector<TLeftJournal> LeftJournals(const std::string& folder) {
  std::vector<TLeftJournal> journals;
  const auto key = KeyIn(folder);
  std::error_code error;
  if (key.empty()) return journals;
  for (const auto& file : std::filesystem::directory_iterator(System::PathOf(folder), error)) {
    const auto name = System::NameOf(file.path());
    if (name.find(Ending) == std::string::npos) continue;
    try {
      if (auto journal = ReadJournal(name, key)) journals.push_back(std::move(*journal));
    } catch (const std::exception&) {
      // What no version of this program has written.
    }
  }
  std::ranges::sort(journals, {}, [](const auto& journal) { return journal.Head.Begun; });
  return journals;
}
