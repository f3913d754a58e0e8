#include "VantrelDataStorage.h"

#include <algorithm>

#include "FoundationTexts.h"
#include "StoredTexts.h"
#include "VantrelDataBin.h"
#include "VantrelDataJson.h"
#include "VantrelDataXml.h"
#include "VantrelExceptions.h"
#include "VantrelI18n.h"
#include "VantrelScopes.h"
#include "VantrelZip.h"

namespace {

using TStateScope = TVantrelScopedValue<TVantrelDataStorageState>;

}  // namespace

TVantrelDataStorage::~TVantrelDataStorage() = default;

void TVantrelDataStorage::AfterConstruction() {
  FFileName = GetDefaultFileName();
  const TStateScope scope(FState, TVantrelDataStorageState::dssCreating, TVantrelDataStorageState::dssNormal);
  DoCreate();
}

void TVantrelDataStorage::BeforeDestruction() {
  const TStateScope scope(FState, TVantrelDataStorageState::dssDestroying, TVantrelDataStorageState::dssNormal);
  DoDestroy();
  FreeUnclaimed();
}

void TVantrelDataStorage::FreeUnclaimed() {
  for (auto* object : FObjects.Unclaimed()) TVantrelDeleter()(object);
}

bool TVantrelDataStorage::IsDamaged() const {
  return FLoadDamage || std::ranges::any_of(FLoadNotes, &TVantrelLoadNote::IsDamage);
}

void TVantrelDataStorage::DoClear() {
  FreeUnclaimed();
}

void TVantrelDataStorage::Clear() {
  {
    const TStateScope scope(FState, TVantrelDataStorageState::dssClearing, TVantrelDataStorageState::dssNormal);
    DoClear();
  }
  FObserver.StorageClear.Call(this);
}

template <class TReader>
void TVantrelDataStorage::LoadThrough(TVantrelStream& stream) {
  FLoadDamage.reset();
  FLoadNotes.clear();
  try {
    LoadWith<TReader>(stream);
  } catch (const std::bad_alloc&) {
    // Makes room for the message too.
    Clear();
    throw EOutOfMemory();
  }
}

template <class TReader>
void TVantrelDataStorage::LoadWith(TVantrelStream& stream) {
  const bool modified = FModified;
  TReader reader(*this, stream);
  try {
    FObjects.Reserve((stream.Size() - stream.Position()) / TReader::UsualBytesPerObject);
    reader.Open();
    const TStateScope scope(FState, TVantrelDataStorageState::dssLoading, TVantrelDataStorageState::dssNormal);
    ReadData(reader);
    FLoadNotes = reader.Notes();
  } catch (const std::bad_alloc&) {
    FModified = modified;
    throw;
  } catch (const std::exception& error) {
    FLoadDamage = TVantrelLoadDamage{error.what(), reader.Place()};
    FModified = modified;
    throw;
  }
  FModified = false;
  FObserver.StorageLoad.Call(this);
}

template <class TWriter>
void TVantrelDataStorage::SaveThrough(TVantrelStream& stream) {
  TWriter writer(*this, stream);
  {
    const TStateScope scope(FState, TVantrelDataStorageState::dssSaving, TVantrelDataStorageState::dssNormal);
    WriteData(writer);
  }
  FObserver.StorageSave.Call(this);
  writer.Finish();
}

void TVantrelDataStorage::LoadFromBinStream(TVantrelStream& stream) {
  LoadThrough<TVantrelDataObjectBinReader>(stream);
}
void TVantrelDataStorage::LoadFromXmlStream(TVantrelStream& stream) {
  LoadThrough<TVantrelDataObjectXMLReader>(stream);
}
void TVantrelDataStorage::LoadFromJsonStream(TVantrelStream& stream) {
  LoadThrough<TVantrelDataObjectJsonReader>(stream);
}
void TVantrelDataStorage::SaveToBinStream(TVantrelStream& stream) {
  SaveThrough<TVantrelDataObjectBinWriter>(stream);
}
void TVantrelDataStorage::SaveToXmlStream(TVantrelStream& stream) {
  SaveThrough<TVantrelDataObjectXMLWriter>(stream);
}
void TVantrelDataStorage::SaveToJsonStream(TVantrelStream& stream) {
  SaveThrough<TVantrelDataObjectJsonWriter>(stream);
}

void TVantrelDataStorage::LoadFromZipStream(TVantrelStream& stream) {
  TVantrelMemoryStream plain;
  try {
    plain.Bytes() = InflateAll(stream);
  } catch (const std::bad_alloc&) {
    throw EOutOfMemory();
  } catch (const std::exception& error) {
    FLoadDamage =
        TVantrelLoadDamage{error.what(), FormatText(StoredTexts::PlaceInBytes, stream.Position(), stream.Size())};
    throw;
  }
  LoadFromBinStream(plain);
}

void TVantrelDataStorage::SaveToZipStream(TVantrelStream& stream) {
  TVantrelMemoryStream plain;
  SaveToBinStream(plain);
  const auto packed = DeflateAll(plain.Bytes());
  const auto size = static_cast<std::int64_t>(packed.size());
  if (stream.Write(packed.data(), size) != size) throw EVantrelWriterError(ResourceText(FoundationTexts::ShortWrite));
}

void TVantrelDataStorage::LoadFromStream(TVantrelStream& stream, TVantrelDataStorageFormat format) {
  switch (format) {
    case TVantrelDataStorageFormat::dsfBinary:
      return LoadFromBinStream(stream);
    case TVantrelDataStorageFormat::dsfXml:
      return LoadFromXmlStream(stream);
    case TVantrelDataStorageFormat::dsfJson:
      return LoadFromJsonStream(stream);
  }
}

void TVantrelDataStorage::SaveToStream(TVantrelStream& stream, TVantrelDataStorageFormat format) {
  switch (format) {
    case TVantrelDataStorageFormat::dsfBinary:
      return SaveToBinStream(stream);
    case TVantrelDataStorageFormat::dsfXml:
      return SaveToXmlStream(stream);
    case TVantrelDataStorageFormat::dsfJson:
      return SaveToJsonStream(stream);
  }
}
