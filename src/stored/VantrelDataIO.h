#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "VantrelDataObjects.h"
#include "VantrelDateTime.h"
#include "VantrelGraphics.h"

class TVantrelDataList;

/// The scalar types that writer and reader have an operation for: name of the operation, C++ type. A char is one
/// UTF-16 unit, a comp a 64-bit integer, a colour 32 bits. The primitive ones are those of TVantrelWriter.
#define VANTREL_PRIMITIVE_SCALARS(X) \
  X(Boolean, bool)                   \
  X(Byte, std::uint8_t)              \
  X(Char, char16_t)                  \
  X(Double, double)                  \
  X(Extended, long double)           \
  X(Guid, TGuid)                     \
  X(Int64, std::int64_t)             \
  X(LongInt, std::int32_t)           \
  X(LongWord, std::uint32_t)         \
  X(ShortInt, std::int8_t)           \
  X(Single, float)                   \
  X(SmallInt, std::int16_t)          \
  X(Word, std::uint16_t)
#define VANTREL_SCALARS(X)      \
  VANTREL_PRIMITIVE_SCALARS(X)  \
  X(Comp, std::int64_t)         \
  X(Currency, TCurrency)        \
  X(DateTime, TDateTime)        \
  X(Date, TDateTime)            \
  X(Time, TDateTime)            \
  X(TimeSpan, TVantrelTimeSpan) \
  X(VCLColor, std::int32_t)

/// The records that writer and reader have an operation for: name of the record, its fields. A field is named by its
/// operation and its member, whose name it has in the forms with names; their order is that of the forms.
#define VANTREL_DRAWING_RECORDS(X) \
  X(Brush, VANTREL_BRUSH_FIELDS) X(Font, VANTREL_FONT_FIELDS) X(Pen, VANTREL_PEN_FIELDS)
#define VANTREL_BRUSH_FIELDS(X) X(LongInt, Color) X(Byte, Styles)
#define VANTREL_FONT_FIELDS(X) X(String, Name) X(LongInt, Color) X(LongInt, Size) X(Byte, Styles)
#define VANTREL_PEN_FIELDS(X) X(LongInt, Color) X(Byte, Mode) X(Byte, Styles) X(LongInt, Width)

/// What WriteData talks to: one operation per type, the name of the value first. The overload with a default writes
/// nothing for a value equal to it in the forms that have names; binary writes always.
class TVantrelDataObjectWriter {
 public:
  explicit TVantrelDataObjectWriter(TVantrelDataStorage& storage) : FStorage(storage) {}
  TVantrelDataObjectWriter(const TVantrelDataObjectWriter&) = delete;
  TVantrelDataObjectWriter& operator=(const TVantrelDataObjectWriter&) = delete;
  virtual ~TVantrelDataObjectWriter() = default;

  /// Puts into the stream what is still in memory. Raises EVantrelWriterError for a short write.
  virtual void Finish() {}

#define VANTREL_DECLARE(Type, CppType)                                       \
  virtual void Write##Type(std::string_view name, CppType value) = 0;        \
  void Write##Type(std::string_view name, CppType value, CppType fallback) { \
    if (!OmitsDefaults() || !(value == fallback)) Write##Type(name, value);  \
  }
  VANTREL_SCALARS(VANTREL_DECLARE)
#undef VANTREL_DECLARE

  virtual void WriteString(std::string_view name, std::string_view value) = 0;
  void WriteString(std::string_view name, std::string_view value, std::string_view fallback) {
    if (!OmitsDefaults() || value != fallback) WriteString(name, value);
  }
  virtual void WriteStringList(std::string_view name, const std::vector<std::string>& value) = 0;
  virtual void WriteShortCut(std::string_view name, const TVantrelShortCut& value) = 0;
  /// Null in the next four: see the form.
  virtual void WriteVCLBrush(std::string_view name, const TVantrelBrush* value) = 0;
  virtual void WriteVCLFont(std::string_view name, const TVantrelFont* value) = 0;
  virtual void WriteVCLGraphic(std::string_view name, const TVantrelGraphic* value) = 0;
  virtual void WriteVCLPen(std::string_view name, const TVantrelPen* value) = 0;
  virtual void WriteDataList(std::string_view name, const TVantrelDataList& list) = 0;
  virtual void WriteDataObject(std::string_view name, const TVantrelDataObject* object) = 0;
  virtual void WriteDataObjectRef(std::string_view name, const TVantrelDataObject* object) = 0;
  /// Null raises EVantrelDataObjectWriterError.
  virtual void WriteDataProperty(std::string_view name, const TVantrelDataProperty* property) = 0;

 protected:
  virtual bool OmitsDefaults() const {
    return true;
  }

  TVantrelDataStorage& FStorage;
};

/// What a reader passed over in a document that it read to its end.
struct TVantrelLoadNote {
  /// Part of the file is lost; otherwise the file may come from an older or newer program.
  bool IsDamage = false;
  /// In words for the user.
  std::string Text;
};

/// Makes an empty graphic for ReadVCLGraphic.
using TVantrelGraphicFactory = TVantrelPtr<TVantrelGraphic> (*)();

/// What ReadData talks to. The overload with a default gives it where the form has names and the name is absent;
/// without one, an absent value raises EVantrelDataObjectReaderError.
class TVantrelDataObjectReader {
 public:
  explicit TVantrelDataObjectReader(TVantrelDataStorage& storage) : FStorage(storage) {}
  TVantrelDataObjectReader(const TVantrelDataObjectReader&) = delete;
  TVantrelDataObjectReader& operator=(const TVantrelDataObjectReader&) = delete;
  virtual ~TVantrelDataObjectReader() = default;

  /// Version of the document, 0 where the form has none.
  int Version() const { return FVersion; }
  /// Where the reader stands, in words for the user.
  virtual std::string Place() const = 0;
  /// What was passed over. To be asked once, when the whole document has been read.
  virtual std::vector<TVantrelLoadNote> Notes() { return {}; }

#define VANTREL_DECLARE(Type, CppType)                   \
  virtual CppType Read##Type(std::string_view name) = 0; \
  virtual CppType Read##Type(std::string_view name, CppType fallback) = 0;
  VANTREL_SCALARS(VANTREL_DECLARE)
#undef VANTREL_DECLARE

  virtual std::string ReadString(std::string_view name) = 0;
  virtual std::string ReadString(std::string_view name, std::string_view fallback) = 0;
  virtual void ReadStringList(std::string_view name, std::vector<std::string>& list) = 0;
  virtual TVantrelShortCut ReadShortCut(std::string_view name) = 0;
  /// The next four take the existing instance and give the one to use.
  virtual std::unique_ptr<TVantrelBrush> ReadVCLBrush(std::string_view name,
                                                      std::unique_ptr<TVantrelBrush> existing) = 0;
  virtual std::unique_ptr<TVantrelFont> ReadVCLFont(std::string_view name, std::unique_ptr<TVantrelFont> existing) = 0;
  virtual TVantrelPtr<TVantrelGraphic> ReadVCLGraphic(std::string_view name, TVantrelGraphicFactory graphicClass,
                                                      TVantrelPtr<TVantrelGraphic> existing) = 0;
  virtual std::unique_ptr<TVantrelPen> ReadVCLPen(std::string_view name, std::unique_ptr<TVantrelPen> existing) = 0;
  virtual void ReadDataList(std::string_view name, TVantrelDataList& list) = 0;
  /// The object to use: `existing` where the file has none; else the one known under the stored GUID, or a new one,
  /// filled from the file. A result other than `existing` takes its place (see ReadOwnedObject).
  virtual TVantrelDataObject* ReadDataObject(std::string_view name, TVantrelDataObject* existing) = 0;
  /// The object known under the stored GUID, or an empty one that the file fills later; null where the file has none.
  virtual TVantrelDataObject* ReadDataObjectRef(std::string_view name) = 0;
  /// Null raises EVantrelDataObjectReaderError.
  virtual void ReadDataProperty(std::string_view name, TVantrelDataProperty* property) = 0;

  /// ReadDataObject into the field that owns the object. An object of another class raises
  /// EVantrelDataObjectReaderError and leaves the field as it was.
  template <class T>
  void ReadOwnedObject(std::string_view name, TVantrelPtr<T>& field) {
    TVantrelDataObject* object = ReadDataObject(name, field.get());
    if (object == field.get()) return;
    field.reset(static_cast<T*>(Claim(object, T::Class())));
  }
  /// ReadDataObjectRef of a reference to an object of class T. Another class raises EVantrelDataObjectReaderError.
  template <class T>
  T* ReadRef(std::string_view name) {
    TVantrelDataObject* object = ReadDataObjectRef(name);
    if (object != nullptr) CheckClass(*object, T::Class());
    return static_cast<T*>(object);
  }

 protected:
  /// How many objects may stand inside each other.
  static constexpr int MaxDepth = 64;

  /// The object under the GUID, or a new one of the class that belongs to the document. A known object of another
  /// class raises EVantrelDataObjectReaderError. A null class is allowed for a known object only.
  TVantrelDataObject* FindOrCreate(const TVantrelDataClass* dataClass, const TGuid& id);
  /// The registered class; an empty name raises EVantrelDataObjectReaderError, an unknown one too.
  const TVantrelDataClass& RequireClass(std::string_view name) const;
  const TVantrelDataClass* FindClass(std::string_view name) const;
  /// ReadData of the object; nesting beyond MaxDepth, and an object inside itself, raise EVantrelDataObjectReaderError.
  void FillObject(TVantrelDataObject& object);

  TVantrelDataStorage& FStorage;
  int FVersion = 0;

 private:
  static void CheckClass(const TVantrelDataObject& object, const TVantrelDataClass& expected);
  static TVantrelDataObject* Claim(TVantrelDataObject* object, const TVantrelDataClass& expected);

  std::vector<const TVantrelDataObject*> FFilling;
  /// The classes that were asked for so far, by name.
  mutable std::vector<std::pair<std::string, const TVantrelDataClass*>> FKnownClasses;
};
