#include "VantrelTextWriters.h"

#include "Testing.h"
#include "VantrelCheckSum.h"

namespace {
TEST(CheckSum, IsTheKnownOneHoweverTheBytesCome) {
  const std::string digits = "123456789";
  TVantrelCRC32 sum;
  sum.Update(digits.data(), digits.size());
  EXPECT_EQ(~sum.Value(), 0xCBF43926U);
  for (const std::size_t blockSize : {0, 1, 3, 9, 100}) {
    TVantrelMemoryStream stream({digits.begin(), digits.end()});
    sum.Reset();
    sum.Update(stream, blockSize);
    EXPECT_EQ(~sum.Value(), 0xCBF43926U) << blockSize;
  }
}

using TLines = std::vector<std::string>;

std::string Content(const TVantrelMemoryStream& stream) {
  return {stream.Bytes().begin(), stream.Bytes().end()};
}

template <class TWork>
std::string Csv(TWork work) {
  TVantrelMemoryStream stream;
  TVantrelCSVWriter writer(stream, 64, false, TVantrelTextEncoding::teUtf8);
  work(writer);
  writer.FlushBuffer();
  return Content(stream);
}

TEST(TextWriter, BreaksLinesLazily) {
  TVantrelMemoryStream stream;
  for (TVantrelTextWriter writer(stream, 0, false); const char* line : {"a", "", "b"}) writer.WriteLine(line);
  EXPECT_EQ(Content(stream), "a\r\nb");
}

TEST(TextWriter, EncodesBehindThePreamble) {
  using namespace std::string_literals;
  const std::pair<TVantrelTextEncoding, std::string> cases[] = {
      {TVantrelTextEncoding::teAnsi, "\xFC\x80"},
      {TVantrelTextEncoding::teUtf8, "\xEF\xBB\xBFü€"},
      {TVantrelTextEncoding::teUtf16, "\xFF\xFE\xFC\0\xAC\x20"s}};
  for (const auto& [encoding, bytes] : cases) {
    TVantrelMemoryStream stream;
    { TVantrelTextWriter(stream, 16, true, encoding).Write("ü€"); }
    EXPECT_EQ(Content(stream), bytes);
  }
}

TEST(CsvWriter, QuotesWhatNeedsIt) {
  const TLines fields = {"", "plain", "semi;colon", "a \"b\"", "two\nlines"};
  EXPECT_EQ(Csv([&](auto& writer) { writer.WriteValues(fields); }),
            ";plain;\"semi;colon\";\"a \"\"b\"\"\";\"two\nlines\"");
  EXPECT_EQ(Csv([](auto& writer) {
              writer.SetQuoteAll(true);
              writer.WriteLine(TLines{"a", ""});
              writer.SetQuoteEmpty(true);
              writer.WriteLine(TLines{"a", ""});
            }),
            "\"a\";\"\"\r\n\"a\";");
}

TEST(CsvWriter, CommentsStandInLinesOfTheirOwn) {
  EXPECT_EQ(Csv([](auto& writer) {
              writer.SetDelimiter(',');
              writer.SetComment('%');
              writer.WriteValue("a");
              writer.WriteComment(" b,c");
              writer.WriteLine(TLines{"d", "e"});
            }),
            "a\r\n\"% b,c\"\r\nd,e");
}
}  // namespace
