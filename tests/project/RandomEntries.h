#pragma once

#include <random>

#include "uProject.h"

/// Entries of all kinds in all places that views write to, a tenth of them in steps of several.
class TRandomEntries {
 public:
  TRandomEntries(TMyTessaronProject& project, unsigned seed) : FProject(project), FRandom(seed) {}

  void Enter() {
    if (Below(10) > 0) return EnterOne();
    const TJoinedChanges joined(FProject);
    for (int i = Below(6); i >= 0; --i) EnterOne();
  }

 private:
  int Below(int limit) { return static_cast<int>(FRandom() % static_cast<unsigned>(limit)); }
  TVariant Text() { return Below(4) == 0 ? "" : std::string(static_cast<std::size_t>(Below(9)), 'a') + "ß\r\n"; }
  void EnterOne() {
    auto& student = *FProject.Students().GetItem(Below(FProject.Students().Count()));
    auto& course = *FProject.Courses().GetItem(Below(FProject.Courses().Count()));
    auto& remarks = student.CertificateComments();
    switch (Below(8)) {
      case 0:
      case 1:
        return FProject.ChangeField(course, "Note" + std::to_string(1 + Below(5)) + "ID",
                                    Below(3) == 0 ? TVariant::Null() : TVariant(Below(30)));
      case 2:
        return FProject.ChangeField(course, "Beurteilung", Text());
      case 3:
        return FProject.ChangeField(course, "Faktor", Below(1000) / 7.0);
      case 4:
        return FProject.ChangeField(student, "Zeugnisdatum", TVariant::DateTime(Below(50000) + 0.25));
      case 5:
        return FProject.ChangeField(student, "Fehltage", Below(200) - 1);
      case 6:
        student.AddCertificateComment(Below(9), Text().AsText(), Text().AsText());
        return;
      default:
        if (remarks.IsEmpty()) return;
        if (Below(9) == 0) return student.DeleteAllCertificateComments();
        const auto id = remarks.GetItem(Below(remarks.Count()))->ID();
        if (Below(3) == 0) return student.DeleteCertificateComment(id);
        student.EditCertificateComment(id, Below(9), Text().AsText(), Text().AsText());
    }
  }

  TMyTessaronProject& FProject;
  std::mt19937 FRandom;
};
