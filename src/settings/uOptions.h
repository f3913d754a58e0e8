#pragma once

#include "VantrelDataStorage.h"
#include "VantrelFolderLock.h"

/// The options of the program, all about spell checking, in an XML file of their own.
class TMyTessaronOptions final : public TVantrelDataStorage {
 public:
  bool RechtschreibungAktiv = true;
  bool RechtschreibungEingabe = true;
  bool RechtschreibungGross = true;
  bool RechtschreibungZahl = true;
  bool RechtschreibungEmail = true;
  bool RechtschreibungURL = true;
  bool RechtschreibungMischfaelle = true;
  bool RechtschreibungWiederholt = false;

  /// `fileName` is the full path of "MyTessaron.opt" in the options folder. Where that folder forbids writing or cannot
  /// be made, the options lie under the same name in `ownFolder`, the user's own, and begin there with what the file in
  /// the options folder says.
  TMyTessaronOptions(std::string fileName, std::string ownFolder);
  ~TMyTessaronOptions() override;

  std::string_view StorageClassName() const override { return "TMyTessaronOptions"; }
  int GetVersion() const override { return 700; }
  std::string GetDefaultFileName() const override;
  std::string GetFallbackFileName() const override { return FCommonFileName; }
  bool IsShared() const override { return true; }

  /// Reads the options' own file; a missing one leaves the defaults. Gives what the user has to know about a file that
  /// cannot be read, which leaves the defaults as well, else nothing.
  std::string Load();
  /// Writes the options' own file, one program after the other, and waits for `patience` until it is the turn of this
  /// one. A file that Load could not open is left alone. Gives what the user has to know where options are not saved
  /// that he changed, else nothing. Never raises.
  std::string Save(std::chrono::milliseconds patience = TVantrelFolderLock::Patience);

  void DoCreate() override;
  void DoClear() override;
  void ReadData(TVantrelDataObjectReader& reader) override;
  void WriteData(TVantrelDataObjectWriter& writer) const override;

 private:
  std::string Unreadable(std::string_view reason);
  bool AreDefaults() const;

  std::string FCommonFileName;
  std::string FOwnFolder;
  /// The file that Load could not open, and why; empty if it could.
  std::string FRefusedFile;
  std::string FRefusal;
};

/// The options of the program; null before its start and behind its end.
inline TMyTessaronOptions* Options = nullptr;
