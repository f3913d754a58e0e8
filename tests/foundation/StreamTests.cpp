#include <gtest/gtest.h>

#include <limits>

#include "TempFolder.h"
#include "VantrelExceptions.h"
#include "VantrelFileStreams.h"
#include "VantrelIO.h"

namespace {
using enum TVantrelFileAccessMode;
using enum TVantrelFileOpenMode;

/// A stream that takes only so much and counts its reads.
class TSmallStream final : public TVantrelStream {
 public:
  explicit TSmallStream(std::int64_t capacity) : FCapacity(capacity) {}
  std::int64_t Read(void* target, std::int64_t count) override { return FInner.Read(target, count); }
  std::int64_t Write(const void* source, std::int64_t count) override {
    return FInner.Write(source, std::min(count, FCapacity - FInner.Size()));
  }
  std::int64_t Position() const override { return FInner.Position(); }
  void SetPosition(std::int64_t position) override { FInner.SetPosition(position); }
  std::int64_t Size() const override { return FInner.Size(); }
  void SetSize(std::int64_t size) override { FInner.SetSize(size); }

 private:
  TVantrelMemoryStream FInner;
  std::int64_t FCapacity;
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

void WriteAllKinds(TVantrelWriter& writer) {
#define WRITE(Kind, value) writer.Write##Kind(value);
  VALUES(WRITE)
  writer.WriteSignature("KVR");
  TVantrelMemoryStream block({1, 2, 3});
  block.SetPosition(2);
  writer.WriteBinary(block);
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
    for (TVantrelStream* stream : {static_cast<TVantrelStream*>(&memory), static_cast<TVantrelStream*>(&file)}) {
      {
        TVantrelStreamWriter writer(*stream, bufferSize);
        WriteAllKinds(writer);
        writer.WriteByte(9);
      }
      stream->SetPosition(0);
      {
        TVantrelStreamReader reader(*stream, bufferSize);
        ExpectAllKinds(reader);
        EXPECT_EQ(reader.Position(), stream->Size() - 1);
        EXPECT_TRUE(reader.CanRead());
        EXPECT_FALSE(reader.Available(2));
      }
      EXPECT_EQ(stream->Position(), stream->Size() - 1);
    }
    file.SetPosition(0);
    EXPECT_EQ(file.ReadAll(), memory.Bytes());
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
  TSmallStream direct(3);
  EXPECT_THROW(TVantrelStreamWriter(direct, 0).WriteLongInt(1), EVantrelWriterError);
  TSmallStream buffered(3);
  TVantrelStreamWriter writer(buffered, 100);
  writer.WriteLongInt(1);
  EXPECT_THROW(writer.FlushBuffer(), EVantrelStreamWriterError);
}

}  // namespace
