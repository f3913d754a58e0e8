#include "VantrelTextWriters.h"

#include "VantrelText.h"
#include "VantrelTextParts.h"

namespace {
constexpr std::string_view LineBreak = "\r\n";
}  // namespace

TVantrelTextWriter::TVantrelTextWriter(TVantrelStream& stream, int bufferSize, bool writeBom,
                                       TVantrelTextEncoding encoding)
    : FEncoding(encoding), FStreamWriter(stream, bufferSize) {
  if (writeBom && encoding != TVantrelTextEncoding::teAnsi) WriteEncoded(ByteOrderMark);
}

void TVantrelTextWriter::WriteEncoded(std::string_view text) {
  switch (FEncoding) {
    case TVantrelTextEncoding::teAnsi:
      return FStreamWriter.WriteSignature(Utf8ToAnsi(text));
    case TVantrelTextEncoding::teUtf8:
      return FStreamWriter.WriteSignature(text);
    case TVantrelTextEncoding::teUtf16:
      const std::u16string units = Utf8ToUtf16(text);
      return FStreamWriter.Write(units.data(), static_cast<std::int64_t>(units.size() * sizeof(char16_t)));
  }
}

void TVantrelTextWriter::Write(std::string_view text) {
  if (text.empty()) return;
  if (FEndOfLine) {
    FEndOfLine = false;
    WriteEncoded(LineBreak);
  }
  WriteEncoded(text);
}

void TVantrelTextWriter::WriteLine(std::string_view text) {
  Write(text);
  FEndOfLine = true;
}

void TVantrelCSVWriter::WriteValue(std::string_view value) {
  if (FWasPreviousField) FTextWriter.Write({&FDelimiter, 1});
  if (value.empty()) {
    if (FQuoteAll && !FQuoteEmpty) FTextWriter.Write("\"\"");
  } else if (FQuoteAll || value.find_first_of("\"\r\n") != std::string_view::npos ||
             value.find(FDelimiter) != std::string_view::npos) {
    FTextWriter.Write(QuotedText(value));
  } else {
    FTextWriter.Write(value);
  }
  FWasPreviousField = true;
}

void TVantrelCSVWriter::WriteValues(const std::vector<std::string>& values) {
  for (const std::string& value : values) WriteValue(value);
}

void TVantrelCSVWriter::WriteLine() {
  FWasPreviousField = false;
  FTextWriter.WriteLine();
}

void TVantrelCSVWriter::WriteLine(const std::vector<std::string>& values) {
  WriteValues(values);
  WriteLine();
}

void TVantrelCSVWriter::WriteComment(std::string_view text) {
  if (FWasPreviousField) WriteLine();
  WriteValue(FComment + std::string(text));
  WriteLine();
}
