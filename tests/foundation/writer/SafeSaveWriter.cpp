// Saves a text to a file, as the program saves a document. Ends with 0 or the code of the error.
#include <span>
#include <string_view>

#include "VantrelExceptions.h"
#include "VantrelSafeSave.h"

int main(int argc, char** argv) {
  if (argc != 3) return 1;
  const std::string_view text(argv[2]);
  try {
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    TVantrelSafeSave::Write(argv[1], bytes, TVantrelFileAccessMode::famShareExclusive);
    return 0;
  } catch (const EVantrelFileHandleError& error) {
    return error.ErrorCode() < 255 ? static_cast<int>(error.ErrorCode()) : 255;
  }
}
