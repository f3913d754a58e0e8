#include "GridData.h"

#include <QCollator>
#include <algorithm>
#include <cmath>

#include "DesktopTexts.h"
#include "QtText.h"
#include "ValueEditor.h"
#include "VantrelMemTable.h"

void TGridData::BindSource(TVantrelGridSource* source) {
  FSource = source;
  FTable = nullptr;
}

void TGridData::BindTable(TVantrelMemTable* table) {
  FTable = table;
  FSource = nullptr;
}

int TGridData::RecordCount() const {
  if (FSource != nullptr) return FSource->GetRecordCount();
  return FTable != nullptr && FTable->Active() ? FTable->RecordCount() : 0;
}

std::optional<TVariant> TGridData::Read(int record, int ordinal) const {
  TVariant value = TVariant::Null();
  if (record < 0 || record >= RecordCount()) return value;
  try {
    if (FSource != nullptr) {
      FSource->GetValue(FSource->GetRecordHandle(record), ordinal, value);
    } else if (FTable != nullptr) {
      if (const auto* field = FTable->FindField(Column(ordinal).Field)) return FTable->ValueAt(record, field->Index());
    }
    return value;
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

void TGridData::SetValue(int record, int ordinal, const TVariant& value) {
  if (FSource != nullptr) {
    FSource->SetValue(FSource->GetRecordHandle(record), ordinal, value);
  } else if (FTable != nullptr) {
    FTable->SetRecNo(record + 1);
    FTable->Edit();
    FTable->FieldByName(Column(ordinal).Field).SetValue(value);
    FTable->Post();
  }
}

TVariant TGridData::FieldValue(int record, std::string_view field) const {
  const auto* found = FTable == nullptr ? nullptr : FTable->FindField(field);
  return found == nullptr ? TVariant::Null() : FTable->ValueAt(record, found->Index());
}

std::uint64_t TGridData::RecordId(int record) const {
  if (FTable != nullptr) return FTable->RecordId(record);
  if (FSource == nullptr || record < 0 || record >= RecordCount()) return 0;
  return reinterpret_cast<std::uintptr_t>(FSource->GetRecordHandle(record));
}

QString TGridData::DisplayText(int record, int ordinal) const {
  const auto value = Read(record, ordinal);
  return value ? DisplayTextOf(Column(ordinal), ordinal, *value) : UserText(DesktopTexts::InvalidValue);
}

QString TGridData::DisplayTextOf(const TGridColumn& column, int ordinal, const TVariant& value) const {
  try {
    return TextOf(column, ordinal, value);
  } catch (const std::exception&) {
    return UserText(DesktopTexts::InvalidValue);
  }
}

QString TGridData::TextOf(const TGridColumn& column, int ordinal, const TVariant& value) const {
  if (FEvents.OnDisplayText) {
    if (const auto text = FEvents.OnDisplayText(ordinal, value)) return FromUtf8(*text);
  }
  if (const auto text = EditorText(column.Editor, value)) return *text;
  if (FTable != nullptr) {
    if (const auto* field = FTable->FindField(column.Field)) return FromUtf8(field->DisplayTextOf(value));
  }
  return NumberText(value);
}

namespace {
/// The end of the last line begins no further one.
QString WithoutFinalBreak(const QString& text) {
  return text.chopped(text.endsWith("\r\n") ? 2 : text.endsWith('\n') ? 1 : 0);
}
}  // namespace

QString ShownPart(const QString& whole) {
  constexpr qsizetype mostCharacters = 4000;
  constexpr int mostLines = 200;
  const QString text = WithoutFinalBreak(whole);
  const qsizetype most = std::min(text.size(), mostCharacters);
  qsizetype end = -1;
  for (int line = 0; line < mostLines && end < most; ++line) {
    end = text.indexOf('\n', end + 1);
    if (end < 0 || end > most) end = most;
  }
  return end == text.size() ? text : text.left(end) + QChar(0x2026);
}

std::vector<int> ColumnsInOrder(const std::vector<TGridColumn>& columns, int TGridColumn::*index) {
  std::vector<int> ordinals;
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (columns[i].*index >= 0) ordinals.push_back(static_cast<int>(i));
  std::stable_sort(ordinals.begin(), ordinals.end(), [&](int a, int b) {
    return columns[static_cast<std::size_t>(a)].*index < columns[static_cast<std::size_t>(b)].*index;
  });
  return ordinals;
}

namespace {
/// What a record is sorted by in one column. Numbers and dates go by value, all else by what the user reads.
struct TSortKey {
  bool Empty = true;
  double Number = 0;
  QString Text;
};

class TRowBuilder {
 public:
  TRowBuilder(const TGridData& data, const TGridOptions& options) : FData(data), FOptions(options) {
    FCollator.setCaseSensitivity(options.CaseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
    FCollator.setNumericMode(true);
    FGroups = ColumnsInOrder(data.Columns, &TGridColumn::GroupIndex);
  }

  std::vector<TGridRow> Build(const std::vector<TGridFilterItem>& filter) {
    std::vector<int> records;
    for (int record = 0; record < FData.RecordCount(); ++record) {
      if (std::all_of(filter.begin(), filter.end(),
                      [&](const auto& item) { return FData.Value(record, item.Ordinal) == item.Value; }))
        records.push_back(record);
    }
    Sort(records);
    AddRows(records.begin(), records.end(), 0, {});
    return std::move(FRows);
  }

 private:
  using TIterator = std::vector<int>::const_iterator;

  TSortKey KeyOf(int record, int ordinal) const {
    const auto& column = FData.Column(ordinal);
    const TVariant value = FData.Value(record, ordinal);
    if (value.IsEmpty()) return {};
    const bool byText =
        column.Editor.ValueKind == TValueKind::Text || column.Editor.Picks() || value.Kind() == TVariantKind::Text;
    if (!byText) return std::isnan(value.AsFloat()) ? TSortKey() : TSortKey{false, value.AsFloat(), {}};
    const QString text = FData.DisplayTextOf(column, ordinal, value);
    return {text.isEmpty(), 0, text};
  }

  int Compare(const TSortKey& a, const TSortKey& b) const {
    if (a.Empty || b.Empty) return static_cast<int>(b.Empty) - static_cast<int>(a.Empty);
    if (a.Number != b.Number) return a.Number < b.Number ? -1 : 1;
    return FCollator.compare(a.Text, b.Text);
  }

  void Sort(std::vector<int>& records) const {
    std::vector<int> by = FGroups;
    if (!FOptions.SortedByView)
      for (const int ordinal : ColumnsInOrder(FData.Columns, &TGridColumn::SortIndex)) by.push_back(ordinal);
    for (auto ordinal = by.rbegin(); ordinal != by.rend(); ++ordinal) {
      std::vector<TSortKey> keys(static_cast<std::size_t>(FData.RecordCount()));
      for (const int record : records) keys[static_cast<std::size_t>(record)] = KeyOf(record, *ordinal);
      const bool descending = FData.Column(*ordinal).SortOrder == TGridSortOrder::Descending;
      std::stable_sort(records.begin(), records.end(), [&](int a, int b) {
        const int order = Compare(keys[static_cast<std::size_t>(a)], keys[static_cast<std::size_t>(b)]);
        return descending ? order > 0 : order < 0;
      });
    }
  }

  void AddRows(TIterator begin, TIterator end, std::size_t level, const QString& parentKey) {
    const int depth = static_cast<int>(level);
    if (level == FGroups.size()) {
      for (auto record = begin; record != end; ++record) FRows.push_back({*record, depth, {}, {}});
      return;
    }
    const int ordinal = FGroups[level];
    while (begin != end) {
      const QString text = FData.DisplayText(*begin, ordinal);
      const auto groupEnd =
          std::find_if(begin, end, [&](int record) { return FData.DisplayText(record, ordinal) != text; });
      const QString key = parentKey + QChar('\n') + text;
      FRows.push_back({-1, depth,
                       UserText(DesktopTexts::GroupHeading)
                           .arg(FromUtf8(FData.Column(ordinal).Caption),
                                text.isEmpty() ? UserText(DesktopTexts::EmptyValue) : ShownPart(text),
                                QString::number(groupEnd - begin)),
                       key});
      AddRows(begin, groupEnd, level + 1, key);
      begin = groupEnd;
    }
  }

  const TGridData& FData;
  const TGridOptions& FOptions;
  QCollator FCollator;
  std::vector<int> FGroups;
  std::vector<TGridRow> FRows;
};
}  // namespace

std::vector<TGridRow> BuildGridRows(const TGridData& data, const TGridOptions& options,
                                    const std::vector<TGridFilterItem>& filter) {
  return TRowBuilder(data, options).Build(filter);
}
