#include "uJournalEntries.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "ProjectTexts.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "uProjectHistory.h"

namespace {

void WriteVariant(TVantrelWriter& writer, const TVariant& value) {
  writer.WriteByte(static_cast<std::uint8_t>(value.Kind()));
  switch (value.Kind()) {
    case TVariantKind::Unassigned:
    case TVariantKind::Null:
      break;
    case TVariantKind::Boolean:
      writer.WriteBoolean(value.AsBoolean());
      break;
    case TVariantKind::Integer:
      writer.WriteLongInt(value.AsInteger());
      break;
    case TVariantKind::Float:
    case TVariantKind::DateTime:
      writer.WriteDouble(value.AsFloat());
      break;
    case TVariantKind::Text:
      writer.WriteUtf8String(value.AsText());
      break;
  }
}

template <class TEnum>
TEnum ReadEnum(TVantrelReader& reader, TEnum last) {
  const auto value = reader.ReadByte();
  if (value > static_cast<std::uint8_t>(last)) throw EVantrelReaderError(ResourceText(ProjectTexts::NoJournal));
  return static_cast<TEnum>(value);
}

TVariant ReadVariant(TVantrelReader& reader) {
  switch (ReadEnum(reader, TVariantKind::Text)) {
    case TVariantKind::Unassigned:
      return {};
    case TVariantKind::Null:
      return TVariant::Null();
    case TVariantKind::Boolean:
      return reader.ReadBoolean();
    case TVariantKind::Integer:
      return reader.ReadLongInt();
    case TVariantKind::Float:
      return reader.ReadDouble();
    case TVariantKind::DateTime:
      return TVariant::DateTime(reader.ReadDouble());
    case TVariantKind::Text:
      return reader.ReadUtf8String();
  }
  return {};
}

/// The record of the list with that place and id; a list that was made anew may hold it elsewhere.
template <class TList>
auto* FindRecord(const TList& list, const TJournalEntry& entry) {
  const auto isIt = [&](int index) { return list.GetItem(index)->TessaronId.AsInt() == entry.TessaronId; };
  int at = entry.Index >= 0 && entry.Index < list.Count() && isIt(entry.Index) ? entry.Index : 0;
  while (at < list.Count() && !isIt(at)) ++at;
  return at < list.Count() ? list.GetItem(at) : nullptr;
}

TCertificateComments* RemarksOf(const TMyTessaronProject& project, const TJournalEntry& entry) {
  auto* student = FindRecord(project.Students(), entry);
  return student == nullptr ? nullptr : &student->CertificateComments();
}

TVantrelRecord* RecordOf(const TMyTessaronProject& project, const TJournalEntry& entry) {
  if (entry.Record == TJournalRecord::Course) return FindRecord(project.Courses(), entry);
  if (entry.Record == TJournalRecord::Student) return FindRecord(project.Students(), entry);
  auto* remarks = RemarksOf(project, entry);
  return remarks == nullptr ? nullptr : static_cast<TCertificateComment*>(remarks->Find(entry.Remark));
}

TReplay JudgeField(const TMyTessaronProject& project, const TJournalEntry& entry) {
  const auto* record = RecordOf(project, entry);
  const auto* field = record == nullptr ? nullptr : record->FindField(entry.Key);
  if (field == nullptr || field->SetValue == nullptr) return TReplay::Differs;
  const auto current = field->Value(*record);
  if (IsSameValue(current, entry.After)) return TReplay::Already;
  return IsSameValue(current, entry.Before) ? TReplay::Done : TReplay::Differs;
}

void ReplayItem(TMyTessaronProject& project, const TJournalEntry& entry) {
  auto& remarks = *RemarksOf(project, entry);
  const int place = remarks.IndexOf(entry.Remark);
  if (entry.Kind == TChangeKind::Inserted) {
    auto remark = CreateVantrel<TCertificateComment>(&project, entry.Remark);
    for (const auto& [key, value] : entry.Fields) remark->RequireField(key).SetValue(*remark, value);
    project.InsertItem(remarks, std::clamp(entry.Place, 0, remarks.Count()), std::move(remark));
  } else if (entry.Kind == TChangeKind::Deleted) {
    project.DeleteItem(remarks, place);
  } else {
    project.MoveItem(remarks, place, std::clamp(entry.Target, 0, remarks.Count() - 1));
  }
}

}  // namespace

std::optional<TJournalEntry> JournalEntryOf(const TMyTessaronProject& project, const TProjectChange& change) {
  const auto place = PlaceOf(project, change.Record, change.List);
  TJournalEntry entry{.Kind = change.Kind,
                      .Key = std::string(change.Key),
                      .Before = change.Before,
                      .After = change.After,
                      .Place = change.Index,
                      .Target = change.Target};
  if (place.Course != nullptr) {
    entry.Index = project.Courses().IndexOf(place.Course);
    entry.TessaronId = place.Course->TessaronId.AsInt();
    return entry;
  }
  if (place.Student == nullptr) return std::nullopt;
  entry.Record = place.IsRemark ? TJournalRecord::Remark : TJournalRecord::Student;
  entry.Index = project.Students().IndexOf(place.Student);
  entry.TessaronId = place.Student->TessaronId.AsInt();
  if (!place.IsRemark) return entry;
  entry.Remark = change.Record.ID();
  if (change.Kind == TChangeKind::Inserted || change.Kind == TChangeKind::Deleted)
    static_cast<const TVantrelRecord&>(change.Record).VisitFields([&](std::string_view key, const TVariant& value) {
      entry.Fields.emplace_back(key, value);
    });
  return entry;
}

void WriteEntry(TVantrelWriter& writer, const TJournalEntry& entry) {
  writer.WriteByte(static_cast<std::uint8_t>(entry.Kind));
  writer.WriteByte(static_cast<std::uint8_t>(entry.Record));
  writer.WriteLongInt(entry.Index);
  writer.WriteLongInt(entry.TessaronId);
  writer.WriteGuid(entry.Remark);
  writer.WriteUtf8String(entry.Key);
  WriteVariant(writer, entry.Before);
  WriteVariant(writer, entry.After);
  writer.WriteLongInt(entry.Place);
  writer.WriteLongInt(entry.Target);
  writer.WriteLongInt(static_cast<std::int32_t>(entry.Fields.size()));
  for (const auto& [key, value] : entry.Fields) {
    writer.WriteUtf8String(key);
    WriteVariant(writer, value);
  }
}

TJournalEntry ReadEntry(TVantrelReader& reader) {
  TJournalEntry entry;
  entry.Kind = ReadEnum(reader, TChangeKind::Moved);
  entry.Record = ReadEnum(reader, TJournalRecord::Remark);
  entry.Index = reader.ReadLongInt();
  entry.TessaronId = reader.ReadLongInt();
  entry.Remark = reader.ReadGuid();
  entry.Key = reader.ReadUtf8String();
  entry.Before = ReadVariant(reader);
  entry.After = ReadVariant(reader);
  entry.Place = reader.ReadLongInt();
  entry.Target = reader.ReadLongInt();
  for (std::int32_t left = reader.ReadLongInt(); left > 0; --left) {
    auto key = reader.ReadUtf8String();
    entry.Fields.emplace_back(std::move(key), ReadVariant(reader));
  }
  return entry;
}

std::vector<TJournalEntry> NetEntries(const std::vector<TJournalEntry>& entries) {
  std::vector<std::optional<TJournalEntry>> left;
  std::map<std::string, std::size_t> fields;
  const auto cancel = [&](const TJournalEntry& gone) {
    for (auto& other : left)
      if (other && other->IsOfSameRecord(gone)) other.reset();
  };
  for (const auto& entry : entries) {
    if (entry.Kind == TChangeKind::Field && IsSameValue(entry.Before, entry.After)) continue;
    const auto record = fmt::format("{} {} {}", static_cast<int>(entry.Record), entry.Index, GuidToText(entry.Remark));
    const auto [place, isFirst] = fields.try_emplace(record + ' ' + entry.Key, left.size());
    auto* earlier = isFirst || !left[place->second] ? nullptr : &*left[place->second];
    const bool cameBefore = earlier != nullptr && earlier->Kind == TChangeKind::Inserted;
    // What a record held goes with it.
    if (entry.Kind == TChangeKind::Deleted) cancel(entry);
    if (entry.Kind == TChangeKind::Deleted && cameBefore) {
      continue;
    } else if (entry.Kind == TChangeKind::Field && earlier != nullptr) {
      earlier->After = entry.After;
      if (IsSameValue(earlier->Before, earlier->After)) left[place->second].reset();
    } else {
      place->second = left.size();
      left.push_back(entry);
    }
  }
  std::vector<TJournalEntry> net;
  for (auto& entry : left)
    if (entry) net.push_back(std::move(*entry));
  return net;
}

TReplay JudgeEntry(const TMyTessaronProject& project, const TJournalEntry& entry) {
  if (entry.Kind == TChangeKind::Field) return JudgeField(project, entry);
  const auto* remarks = RemarksOf(project, entry);
  if (remarks == nullptr) return TReplay::Differs;
  const bool isThere = remarks->IndexOf(entry.Remark) >= 0;
  if (entry.Kind == TChangeKind::Moved) return isThere ? TReplay::Done : TReplay::Differs;
  return isThere == (entry.Kind == TChangeKind::Inserted) ? TReplay::Already : TReplay::Done;
}

TReplay ReplayEntry(TMyTessaronProject& project, const TJournalEntry& entry) {
  const auto judged = JudgeEntry(project, entry);
  if (judged != TReplay::Done) return judged;
  if (entry.Kind == TChangeKind::Field)
    project.ChangeField(*RecordOf(project, entry), entry.Key, entry.After);
  else
    ReplayItem(project, entry);
  return judged;
}
