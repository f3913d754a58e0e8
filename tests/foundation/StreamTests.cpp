#include <limits>

#include "Testing.h"
#include "VantrelFileStreams.h"
#include "VantrelIO.h"

namespace {
using enum TVantrelFileAccessMode;
using enum TVantrelFileOpenMode;

/// A stream that never takes more than three bytes at a time.
struct TSmallStream final : TVantrelStream {
  std::int64_t Read(void*, std::int64_t) override { return 0; }
  std::int64_t Write(const void*, std::int64_t count) override { return std::min<std::int64_t>(count, 3); }
  std::int64_t Position() const override { return 0; }
  void SetPosition(std::int64_t) override {}
  std::int64_t Size() const override { return 0; }
  void SetSize(std::int64_t) override {}
};

/// Every kind of value with its write and read operation.
#define VALUES(X)                                            \
  X(Boolean, true)                                           \
  X(ShortInt, -2)                                            \
  X(SmallInt, -300)                                          \
  X(Char, u'ß')                                              \
  X(LongInt, -70000)                                         \
  X(Int64, std::numeric_limits<std::int64_t>::min())         \
  X(Single, 0.5F)                                            \
  X(Double, -1.25)                                           \
  X(String, "Grüße 😀 \xED\xA0\x80")                          \
  X(String, "")                                              \
  X(AnsiString, "ä€")                                        \
  X(Utf8String, "ä€")                                        \
  X(Strings, (std::vector<std::string>{"eins", "", "drei"})) \
  X(Guid, (TGuid{{0xFF, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}}))

/// All of them, and one byte more.
void WriteAllKinds(TVantrelWriter&& writer) {
#define WRITE(Kind, value) writer.Write##Kind(value);
  VALUES(WRITE)
  writer.WriteSignature("KVR");
  TVantrelMemoryStream block({1, 2, 3});
  block.SetPosition(2);
  writer.WriteBinary(block);
  writer.WriteByte(9);
}

void ExpectAllKinds(TVantrelReader& reader) {
#define EXPECT_VALUE(Kind, value) EXPECT_EQ(reader.Read##Kind(), value);
  VALUES(EXPECT_VALUE)
  EXPECT_TRUE(reader.ReadSignature("KVR"));
  EXPECT_EQ(reader.ReadBinary()->Bytes(), (std::vector<std::uint8_t>{1, 2, 3}));
}

TEST(Streams, ReadBackWhatWasWrittenWithAnyBuffer) {
  const TempFolder folder;
  for (const int bufferSize : {0, 1, 7, 4096}) {
    SCOPED_TRACE(bufferSize);
    TVantrelMemoryStream memory;
    TVantrelFileStream file(folder / "f", famShareExclusive, fomCreate);
    for (TVantrelStream* stream : std::initializer_list<TVantrelStream*>{&memory, &file}) {
      WriteAllKinds(TVantrelStreamWriter(*stream, bufferSize));
      stream->SetPosition(0);
      {
        TVantrelStreamReader reader(*stream, bufferSize);
        ExpectAllKinds(reader);
        EXPECT_EQ(reader.Position(), stream->Size() - 1);
        EXPECT_TRUE(reader.CanRead() && !reader.Available(2));
      }
      EXPECT_EQ(stream->Position(), stream->Size() - 1);
    }
    file.SetPosition(0);
    EXPECT_EQ(file.ReadAll(), memory.Bytes());
    for (TVantrelStream* stream : std::initializer_list<TVantrelStream*>{&memory, &file}) {
      stream->SetSize(2);
      EXPECT_EQ(stream->Size() + stream->Position(), 4);
      stream->Clear();
      EXPECT_EQ(stream->Size() + stream->Position(), 0);
    }
  }
}

TEST(Streams, ShortReadsAndAbsurdLengthsRaise) {
  const TempFolder folder;
  const std::vector<std::vector<std::uint8_t>> texts{
      {1, 0, 0}, {2, 0, 0, 0, 'a'}, {0xFF, 0xFF, 0xFF, 0x7F, 'a', 0}, {0xFF, 0xFF, 0xFF, 0xFF, 'a', 0}};
  for (const auto& bytes : texts) {
    TVantrelMemoryStream memory(bytes);
    TVantrelFileStream file(folder / "f", famShareExclusive, fomCreate);
    file.Write(bytes.data(), std::ssize(bytes));
    for (const int bufferSize : {0, 64}) {
      file.SetPosition(0);
      memory.SetPosition(0);
      EXPECT_THROW(TVantrelStreamReader(file, bufferSize).ReadString(), EVantrelReaderError);
      EXPECT_THROW(TVantrelStreamReader(memory, bufferSize).ReadString(), EVantrelReaderError);
      memory.SetPosition(0);
      EXPECT_THROW(TVantrelStreamReader(memory, bufferSize).ReadBinary(), EVantrelReaderError);
    }
  }
}

TEST(Streams, ShortWritesRaise) {
  TSmallStream stream;
  EXPECT_THROW(TVantrelStreamWriter(stream, 0).WriteLongInt(1), EVantrelWriterError);
  TVantrelStreamWriter writer(stream, 100);
  writer.WriteLongInt(1);
  EXPECT_THROW(writer.FlushBuffer(), EVantrelStreamWriterError);
}

TEST(Base64, GoesBothWays) {
  const std::pair<std::string, std::string> cases[] = {
      {"", ""}, {"f", "Zg=="}, {"fo", "Zm8="}, {"foo", "Zm9v"}, {"foobar", "Zm9vYmFy"}, {"\xFB\xFF\xFE", "+//+"}};
  for (const auto& [bytes, text] : cases) {
    EXPECT_EQ(EncodeBase64(bytes.data(), bytes.size()), text);
    EXPECT_EQ(DecodeBase64(text), std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
  }
}

TEST(Base64, LongBytesAndForeignCharacters) {
  std::vector<std::uint8_t> bytes(4'000'001);
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i * 31 >> 3);
  const std::string text = EncodeBase64(bytes.data(), bytes.size());
  EXPECT_EQ(text.size(), (bytes.size() + 2) / 3 * 4);
  EXPECT_EQ(DecodeBase64(text), bytes);
  EXPECT_EQ(DecodeBase64(" Zm9\r\nv-\xFF"), (std::vector<std::uint8_t>{'f', 'o', 'o'}));
}
}  // namespace
