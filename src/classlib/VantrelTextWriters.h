#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "VantrelIO.h"

/// How a written text stands in its file: Windows-1252, UTF-8 or UTF-16 in little-endian order.
enum class TVantrelTextEncoding : std::uint8_t { teAnsi, teUtf8, teUtf16 };

/// Writes lines to a stream that stays the caller's. A line break (CR LF) goes out only in front of the text that
/// follows it: the last line has none, and an empty line is lost.
class TVantrelTextWriter {
 public:
  /// `bufferSize` is that of TVantrelStreamWriter. With `writeBom` the preamble of the encoding comes first, which
  /// the ANSI code page lacks.
  TVantrelTextWriter(TVantrelStream& stream, int bufferSize, bool writeBom,
                     TVantrelTextEncoding encoding = TVantrelTextEncoding::teAnsi);

  /// `text` is UTF-8. Raises as TVantrelStreamWriter.
  void Write(std::string_view text);
  void WriteLine(std::string_view text = {});
  void FlushBuffer() { FStreamWriter.FlushBuffer(); }

 private:
  void WriteEncoded(std::string_view text);

  TVantrelTextEncoding FEncoding;
  bool FEndOfLine = false;
  TVantrelStreamWriter FStreamWriter;
};

/// Writes comma-separated values: fields with quotes or line breaks in quotes, the quotes doubled; fields with the
/// delimiter in quotes.
class TVantrelCSVWriter {
 public:
  /// As TVantrelTextWriter.
  TVantrelCSVWriter(TVantrelStream& stream, int bufferSize, bool writeBom,
                    TVantrelTextEncoding encoding = TVantrelTextEncoding::teAnsi)
      : FTextWriter(stream, bufferSize, writeBom, encoding) {}

  /// Default "#".
  void SetComment(char comment) { FComment = comment; }
  /// Default ";".
  void SetDelimiter(char delimiter) { FDelimiter = delimiter; }
  /// Quotes around every field, default off.
  void SetQuoteAll(bool quoteAll) { FQuoteAll = quoteAll; }
  /// Takes empty fields out of SetQuoteAll, default off.
  void SetQuoteEmpty(bool quoteEmpty) { FQuoteEmpty = quoteEmpty; }

  /// One field of the present line.
  void WriteValue(std::string_view value);
  void WriteValues(const std::vector<std::string>& values);
  /// Ends the line.
  void WriteLine();
  void WriteLine(const std::vector<std::string>& values);
  /// A line of its own with the comment character and the text as its one field.
  void WriteComment(std::string_view text);
  void FlushBuffer() { FTextWriter.FlushBuffer(); }

 private:
  char FComment = '#';
  char FDelimiter = ';';
  bool FQuoteAll = false;
  bool FQuoteEmpty = false;
  bool FWasPreviousField = false;
  TVantrelTextWriter FTextWriter;
};
