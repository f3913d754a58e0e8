#include <fmt/format.h>

#include <array>
#include <filesystem>

#include "FoundationTexts.h"
#include "SystemFolders.h"
#include "VantrelExceptions.h"
#include "VantrelGuid.h"
#include "VantrelPaths.h"

namespace {
constexpr std::array<const char*, 7> ShortDayNames{"So", "Mo", "Di", "Mi", "Do", "Fr", "Sa"};

std::string DateStamp(TDateTime time) {
  const auto parts = DecodeDateTime(time);
  return fmt::format("-{:04}-{:02}-{:02}-{}", parts.Year, parts.Month, parts.Day,
                     ShortDayNames.at(static_cast<std::size_t>(DayOfWeek(time))));
}

std::string Stamped(std::string_view path, const std::string& stamp) {
  const auto name = TVantrelFilePath::GetFileNameWithoutExtension(path) + stamp;
  return TVantrelFilePath::ChangeFileName(path,
                                          TVantrelFilePath::AddExtension(name, TVantrelFilePath::GetExtension(path)));
}
}  // namespace

std::string TVantrelFilePath::GetPathFromRegistry(std::string_view, std::string_view) {
  throw EVantrelFileSystemError(TVantrelErrorCode::NotSupported, FoundationTexts::NoRegistryPaths);
}

std::string TVantrelFilePath::GetTempPath() {
  std::error_code error;
  const auto path = std::filesystem::temp_directory_path(error);
  CheckSystem<EVantrelFileSystemError>(System::CodeOf(error));
  return AddTrailingPathDelimiter(System::NameOf(path));
}

std::string TVantrelFilePath::GetTempFileName(std::string_view directory, std::string_view prefix) {
  const auto name = std::string(prefix) + GuidToText(NewGuid(), TVantrelGuidFormat::gfWithoutBrackets);
  auto path = Combine(directory, AddExtension(name, "tmp"));
  CheckSystem<EVantrelFileSystemError>(System::MakeFile(path));
  return path;
}

std::string TVantrelFilePath::GetGuidFileName(std::string_view directory, std::string_view extension) {
  return Combine(directory, AddExtension(GuidToText(NewGuid(), TVantrelGuidFormat::gfWithoutBrackets), extension));
}

std::string TVantrelFilePath::GetUniqueFileName(std::string_view path) {
  return System::FirstFreeName(std::string(path),
                               [path](int number) { return Stamped(path, fmt::format(" ({})", number)); });
}

std::string TVantrelFilePath::GetTimeStampedFileName(std::string_view path, std::optional<TDateTime> time) {
  const auto value = time.value_or(CurrentDateTime());
  const auto parts = DecodeDateTime(value);
  return Stamped(path, DateStamp(value) + fmt::format("-{:02}-{:02}-{:02}", parts.Hour, parts.Minute, parts.Second));
}

std::string TVantrelFilePath::GetDateStampedFileName(std::string_view path, std::optional<TDateTime> date) {
  return Stamped(path, DateStamp(date.value_or(CurrentDateTime())));
}
