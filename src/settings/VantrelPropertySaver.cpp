#include "VantrelPropertySaver.h"

#include <algorithm>
#include <limits>

#include "VantrelExceptions.h"
#include "VantrelRtti.h"
#include "VantrelStorage.h"
#include "VantrelStringList.h"
#include "VantrelText.h"

using enum TVantrelTypeKind;

const TVantrelPropertyLink* TVantrelPropertyLinks::FindProperty(std::string_view path) const {
  const auto found = std::ranges::find_if(*this, [&](const auto& link) { return SameText(link.Path, path); });
  return found == end() ? nullptr : &*found;
}

namespace {

/// A value and where it is stored.
struct TPlace {
  TVantrelStorage& Storage;
  std::string_view Key;
  std::string_view Name;
};

TVantrelObject* ObjectBehind(const TVantrelInstanceRTTI& object, std::string_view property) {
  const auto& properties = object.ClassRTTI();
  if (properties.GetPropertyTypeKind(property) != tkClass || !properties.IsPropertyReadable(property)) return nullptr;
  return object.GetObjectProperty(property);
}

/// Walks along the path and calls `act` with the object and the property at its end.
template <class TAct>
void AtProperty(TVantrelObject& component, std::string_view path, TAct act) {
  const auto separator = path.find('\\');
  const auto property = path.substr(0, separator);
  TVantrelInstanceRTTI object(component);
  if (!object.ClassRTTI().IsPropertyPublished(property)) return;
  if (separator == std::string_view::npos) {
    if (object.ClassRTTI().IsPropertyReadable(property)) act(object, property);
  } else if (auto* behind = dynamic_cast<TVantrelPersistent*>(ObjectBehind(object, property))) {
    AtProperty(*behind, path.substr(separator + 1), act);
  }
}

/// Whether the stores can hold the value as an integer.
bool IsStorableInteger(const TVariant& value) {
  using TLimits = std::numeric_limits<std::int32_t>;
  return value.Kind() == TVariantKind::Integer && value.AsFloat() >= TLimits::min() &&
         value.AsFloat() <= TLimits::max();
}

void ReadVariant(const TPlace& at, TVantrelInstanceRTTI& object, std::string_view property) {
  auto& storage = at.Storage;
  const auto value = object.GetVariantProperty(property);
  if (value.Kind() == TVariantKind::Text)
    object.SetVariantProperty(property, storage.ReadString(at.Key, at.Name, value.AsText()));
  else if (value.Kind() == TVariantKind::DateTime)
    object.SetVariantProperty(property, TVariant::DateTime(storage.ReadDateTime(at.Key, at.Name, value.AsFloat())));
  else if (IsStorableInteger(value))
    object.SetVariantProperty(property, storage.ReadInteger(at.Key, at.Name, value.AsInteger()));
}

void WriteVariant(const TPlace& at, const TVantrelInstanceRTTI& object, std::string_view property) {
  const auto value = object.GetVariantProperty(property);
  if (value.Kind() == TVariantKind::Text)
    at.Storage.WriteString(at.Key, at.Name, value.AsText());
  else if (value.Kind() == TVariantKind::DateTime)
    at.Storage.WriteDateTime(at.Key, at.Name, value.AsFloat());
  else if (IsStorableInteger(value))
    at.Storage.WriteInteger(at.Key, at.Name, value.AsInteger());
}

void ReadLines(const TPlace& at, TVantrelStringList& list) {
  list.Lines = FromDelimitedText(at.Storage.ReadString(at.Key, at.Name, ToDelimitedText(list.Lines)));
}

void ReadPlain(const TPlace& at, TVantrelInstanceRTTI& object, std::string_view property) {
  auto& storage = at.Storage;
  const auto text = [&](const std::string& present) { return storage.ReadString(at.Key, at.Name, present); };
  switch (object.ClassRTTI().GetPropertyTypeKind(property)) {
    case tkInteger:
      return object.SetOrdProperty(
          property, storage.ReadInteger(at.Key, at.Name, static_cast<std::int32_t>(object.GetOrdProperty(property))));
    case tkChar:
    case tkWChar:
      return object.SetOrdProperty(
          property, storage.ReadChar(at.Key, at.Name, static_cast<char16_t>(object.GetOrdProperty(property))));
    case tkEnumeration:
      return object.SetEnumProperty(property, text(object.GetEnumProperty(property)));
    case tkSet:
      return object.SetSetProperty(property, text(object.GetSetProperty(property)));
    case tkFloat:
      return object.SetFloatProperty(property, storage.ReadFloat(at.Key, at.Name, object.GetFloatProperty(property)));
    case tkString:
      return object.SetStringProperty(property, text(object.GetStringProperty(property)));
    case tkVariant:
      return ReadVariant(at, object, property);
    default:
      return;
  }
}

void WritePlain(const TPlace& at, const TVantrelInstanceRTTI& object, std::string_view property) {
  auto& storage = at.Storage;
  switch (object.ClassRTTI().GetPropertyTypeKind(property)) {
    case tkInteger:
      return storage.WriteInteger(at.Key, at.Name, static_cast<std::int32_t>(object.GetOrdProperty(property)));
    case tkChar:
    case tkWChar:
      return storage.WriteChar(at.Key, at.Name, static_cast<char16_t>(object.GetOrdProperty(property)));
    case tkEnumeration:
      return storage.WriteString(at.Key, at.Name, object.GetEnumProperty(property));
    case tkSet:
      return storage.WriteString(at.Key, at.Name, object.GetSetProperty(property));
    case tkFloat:
      return storage.WriteFloat(at.Key, at.Name, object.GetFloatProperty(property));
    case tkString:
      return storage.WriteString(at.Key, at.Name, object.GetStringProperty(property));
    case tkVariant:
      return WriteVariant(at, object, property);
    default:
      return;
  }
}

}  // namespace

void TVantrelStorage::ReadProperty(std::string_view key, std::string_view name, TVantrelObject& component,
                                   std::string_view path) {
  if (!Active()) return;
  const TPlace at{*this, key, name};
  AtProperty(component, path, [&](TVantrelInstanceRTTI& object, std::string_view property) {
    if (auto* lines = dynamic_cast<TVantrelStringList*>(ObjectBehind(object, property))) return ReadLines(at, *lines);
    if (!object.ClassRTTI().IsPropertyWriteable(property)) return;
    try {
      ReadPlain(at, object, property);
    } catch (const EVantrelRTTIError&) {
      // No value of the property's type: it keeps the one that it has.
    }
  });
}

void TVantrelStorage::WriteProperty(std::string_view key, std::string_view name, TVantrelObject& component,
                                    std::string_view path) {
  if (!Active()) return;
  const TPlace at{*this, key, name};
  AtProperty(component, path, [&](TVantrelInstanceRTTI& object, std::string_view property) {
    if (const auto* lines = dynamic_cast<TVantrelStringList*>(ObjectBehind(object, property)))
      return WriteString(key, name, ToDelimitedText(lines->Lines));
    WritePlain(at, object, property);
  });
}
