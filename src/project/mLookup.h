#pragma once

#include "VantrelGrid.h"
#include "uProject.h"

/// The catalogues of a project once more, as the tables that lookup editors are bound to. The tables are copies.
class TLookupTables {
 public:
  explicit TLookupTables(TMyTessaronProject& project);
  TLookupTables(const TLookupTables&) = delete;
  TLookupTables& operator=(const TLookupTables&) = delete;

  /// Fills the tables anew from ProjectObj.
  void Initialize();

  /// The project that the tables mirror, not owned. It may be gone: only to be compared.
  TMyTessaronProject* const ProjectObj;

  TVantrelMemTable Abschluesse, Abschlussarten, Empfehlungen, Fachstati, Niveaus;
  /// Kept sorted by "Token".
  TVantrelMemTable Grades;
  TVantrelMemTable Unterrichtsarten, Versetzungsarten, Zeugnisbeurteilungen, CertificateComments, Leistungsarten;

  /// What drop-down lists show of each table, and its key.
  const TEditorLookup gv_Abschluesse = View(Abschluesse), gv_Abschlussarten = View(Abschlussarten),
                      gv_CertificateComments = View(CertificateComments), gv_Empfehlungen = View(Empfehlungen),
                      gv_Fachstati = View(Fachstati), gv_Grades = View(Grades, "ID"),
                      gv_Leistungsarten = View(Leistungsarten), gv_Niveaus = View(Niveaus),
                      gv_Unterrichtsarten = View(Unterrichtsarten), gv_Versetzungsarten = View(Versetzungsarten),
                      gv_Zeugnisbeurteilungen = View(Zeugnisbeurteilungen);

 private:
  static TEditorLookup View(TVantrelMemTable& table, const char* keyField = "Token") {
    return {&table, keyField, "Token", "Description"};
  }
};

/// The lookup tables that the program shares. One instance exists at a time, in LookupModule: from the end of a load to
/// the start of the next.
class TLookupModule final : public TVantrelObject, public TLookupTables {
 public:
  explicit TLookupModule(TMyTessaronProject& project);
  ~TLookupModule() override { Retire(); }

  /// Goes out of LookupModule; the tables live on.
  void Retire();
};

/// The lookup tables of the project that was loaded last, or null. It follows the loading, not CurrentProject.
inline TLookupModule* LookupModule = nullptr;

/// Makes the module for a project and fills it. The one before must be gone.
TVantrelPtr<TLookupModule> CreateLookupModule(TMyTessaronProject& project);
