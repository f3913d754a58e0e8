#include <benchmark/benchmark.h>
#include <libxml/parser.h>
#include <malloc.h>
#include <openssl/evp.h>

#include <array>
#include <climits>
#include <map>
#include <memory>

#include "CerealRecords.h"
#include "SampleProject.h"
#include "VantrelAesCipher.h"
#include "uProject.h"

namespace {

using TBytes = std::vector<std::uint8_t>;
constexpr const char* PassPhrase = "any text does";

/// A project of so many students with 12 courses each, in the forms that are measured.
struct TDocument {
  TBytes Xml;
  TBytes Binary;
  std::string Cereal;
};

const TDocument& DocumentOf(int students) {
  static std::map<int, TDocument> documents;
  auto& document = documents[students];
  if (document.Xml.empty()) {
    auto project = CreateVantrel<TMyTessaronProject>();
    TSampleOptions options;
    options.Students = students;
    options.Subjects = 12;
    options.Classes = std::max(1, students / 28);
    BuildSample(*project, options);
    TVantrelMemoryStream xml;
    project->SaveToXmlStream(xml);
    document.Xml = std::move(xml.Bytes());
    TVantrelMemoryStream binary;
    project->SaveToBinStream(binary);
    document.Binary = std::move(binary.Bytes());
    document.Cereal = WriteWithCereal(*project);
  }
  return document;
}

void SetBytes(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
  state.counters["bytes"] = static_cast<double>(bytes);
}

TVantrelPtr<TMyTessaronProject> Open(const TBytes& bytes, TVantrelDataStorageFormat format) {
  TVantrelMemoryStream stream(bytes);
  auto project = CreateVantrel<TMyTessaronProject>();
  project->LoadFromStream(stream, format);
  return project;
}

/// Opens and throws away; the throwing away is not measured.
void OpenDocument(benchmark::State& state, const TBytes& bytes, TVantrelDataStorageFormat format) {
  for (auto _ : state) {
    state.PauseTiming();
    TVantrelMemoryStream stream(bytes);
    state.ResumeTiming();
    auto project = CreateVantrel<TMyTessaronProject>();
    project->LoadFromStream(stream, format);
    benchmark::DoNotOptimize(project->Students().Count());
    state.PauseTiming();
    project.reset();
    state.ResumeTiming();
  }
  SetBytes(state, bytes.size());
}

void LibxmlParse(benchmark::State& state) {
  const auto& bytes = DocumentOf(static_cast<int>(state.range(0))).Xml;
  for (auto _ : state) {
    xmlDoc* document =
        xmlReadMemory(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()), nullptr, nullptr, 0);
    state.PauseTiming();
    xmlFreeDoc(document);
    state.ResumeTiming();
  }
  SetBytes(state, bytes.size());
}

void OpenXml(benchmark::State& state) {
  OpenDocument(state, DocumentOf(static_cast<int>(state.range(0))).Xml, TVantrelDataStorageFormat::dsfXml);
}

void OpenBinary(benchmark::State& state) {
  OpenDocument(state, DocumentOf(static_cast<int>(state.range(0))).Binary, TVantrelDataStorageFormat::dsfBinary);
}

void SaveDocument(benchmark::State& state, TVantrelDataStorageFormat format) {
  auto project = Open(DocumentOf(static_cast<int>(state.range(0))).Binary, TVantrelDataStorageFormat::dsfBinary);
  std::size_t size = 0;
  for (auto _ : state) {
    TVantrelMemoryStream stream;
    project->SaveToStream(stream, format);
    size = stream.Bytes().size();
  }
  SetBytes(state, size);
}

void SaveXml(benchmark::State& state) {
  SaveDocument(state, TVantrelDataStorageFormat::dsfXml);
}
void SaveBinary(benchmark::State& state) {
  SaveDocument(state, TVantrelDataStorageFormat::dsfBinary);
}

void CerealRead(benchmark::State& state) {
  const auto& bytes = DocumentOf(static_cast<int>(state.range(0))).Cereal;
  for (auto _ : state) benchmark::DoNotOptimize(ReadWithCereal(bytes));
  SetBytes(state, bytes.size());
}

void DocumentMemory(benchmark::State& state) {
  const auto& bytes = DocumentOf(static_cast<int>(state.range(0))).Binary;
  std::size_t taken = 0;
  for (auto _ : state) {
    const auto before = mallinfo2();
    auto project = Open(bytes, TVantrelDataStorageFormat::dsfBinary);
    const auto after = mallinfo2();
    taken = (after.uordblks + after.hblkhd) - (before.uordblks + before.hblkhd);
  }
  state.counters["memory"] = static_cast<double>(taken);
  SetBytes(state, bytes.size());
}

void CipherStream(benchmark::State& state, bool encrypting) {
  const auto& bytes = DocumentOf(static_cast<int>(state.range(0))).Xml;
  TVantrelMemoryStream in(bytes);
  TVantrelMemoryStream out;
  out.Bytes().reserve(bytes.size());
  for (auto _ : state) {
    in.SetPosition(0);
    out.SetPosition(0);
    TVantrelAesCipher cipher;
    cipher.Init(PassPhrase, nullptr);
    encrypting ? cipher.EncryptStream(in, out, in.Size()) : cipher.DecryptStream(in, out, in.Size());
  }
  SetBytes(state, bytes.size());
}

void Encipher(benchmark::State& state) {
  CipherStream(state, true);
}
void Decipher(benchmark::State& state) {
  CipherStream(state, false);
}

void LibcryptoCbc(benchmark::State& state, int encrypting) {
  const auto& bytes = DocumentOf(static_cast<int>(state.range(0))).Xml;
  TBytes out(bytes.size() + 16);
  const std::array<std::uint8_t, 16> key{};
  const std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)> context(EVP_CIPHER_CTX_new(),
                                                                                EVP_CIPHER_CTX_free);
  for (auto _ : state) {
    EVP_CipherInit_ex2(context.get(), EVP_aes_128_cbc(), key.data(), key.data(), encrypting, nullptr);
    EVP_CIPHER_CTX_set_padding(context.get(), 0);
    int written = 0;
    EVP_CipherUpdate(context.get(), out.data(), &written, bytes.data(), static_cast<int>(bytes.size() / 16 * 16));
    benchmark::DoNotOptimize(written);
  }
  SetBytes(state, bytes.size());
}

void LibcryptoEncrypt(benchmark::State& state) {
  LibcryptoCbc(state, 1);
}
void LibcryptoDecrypt(benchmark::State& state) {
  LibcryptoCbc(state, 0);
}

constexpr int Small = 200;
constexpr int Usual = 2000;
constexpr int Large = 20000;

BENCHMARK(LibxmlParse)->Arg(Small)->Arg(Usual)->Arg(Large)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenXml)->Arg(Small)->Arg(Usual)->Arg(Large)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveXml)->Arg(Small)->Arg(Usual)->Arg(Large)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenBinary)->Arg(Small)->Arg(Usual)->Arg(Large)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveBinary)->Arg(Small)->Arg(Usual)->Arg(Large)->Unit(benchmark::kMillisecond);
BENCHMARK(CerealRead)->Arg(Small)->Arg(Usual)->Arg(Large)->Unit(benchmark::kMillisecond);
BENCHMARK(DocumentMemory)->Arg(Small)->Arg(Usual)->Arg(Large)->Unit(benchmark::kMillisecond);
BENCHMARK(Encipher)->Arg(Usual)->Unit(benchmark::kMillisecond);
BENCHMARK(LibcryptoEncrypt)->Arg(Usual)->Unit(benchmark::kMillisecond);
BENCHMARK(Decipher)->Arg(Usual)->Unit(benchmark::kMillisecond);
BENCHMARK(LibcryptoDecrypt)->Arg(Usual)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  // Memory that one round frees serves the next, whatever its size: no measure pays for the kernel's pages.
  mallopt(M_TRIM_THRESHOLD, INT_MAX);
  mallopt(M_MMAP_MAX, 0);
  TMyTessaronProject::RegisterClasses();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
