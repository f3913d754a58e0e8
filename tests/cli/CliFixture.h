#pragma once

#include <sstream>

#include "Commands.h"
#include "SampleProjectTest.h"

/// Runs commands in this process, in a folder of their own.
class CliFixture : public testing::Test {
 protected:
  /// The number that the program exits with; what it prints is in FOut and FErr.
  int Run(const std::vector<std::string>& arguments) {
    FOut.str({});
    FErr.str({});
    TCliContext context{FOut, FErr, false, FAskPassword};
    return static_cast<int>(RunCli(arguments, context));
  }
  std::string Out() const { return FOut.str(); }
  std::string Err() const { return FErr.str(); }

  static std::string Fixture(const std::string& name) { return std::string(FIXTURES) + "/" + name; }

  /// A project without a defect: one class, one student, one course.
  static TVantrelPtr<TMyTessaronProject> Project() {
    TMyTessaronProject::RegisterClasses();
    auto project = ProjectIn(Fixture("empty.kvrxr"));
    project->Classes().AddClass(5, "10a", TGradeTypes::gtValue);
    project->Noten().AddNote(2, "2+", "gut", 1.7F, TGradeTypes::gtValue);
    project->Fachstati().AddCatalog("P", "Pflicht");
    project->Options().Columns().AddColumn("Note1", "1. Note", true, true, true, 0);
    auto* student = static_cast<TStudent*>(project->Students().Add(TStudent::Class()));
    student->TessaronId.SetAsInt(100);
    student->Vorname = "Anna";
    student->Nachname = "Beck";
    student->ClassId.SetAsInt(5);
    auto* course = static_cast<TCourse*>(project->Courses().Add(TCourse::Class()));
    course->TessaronId.SetAsInt(200);
    course->SubjectToken = "Ma";
    course->SubjectName = "Mathematik";
    course->Student = student;
    return project;
  }
  static TStudent& Anna(const TMyTessaronProject& project) { return *project.Students().GetItem(0); }
  static TCourse& Maths(const TMyTessaronProject& project) { return *project.Courses().GetItem(0); }

  /// Saves the project and lets the file go.
  std::string Save(TVantrelPtr<TMyTessaronProject> project, const std::string& name) {
    project->SetFileName(FFolder / name);
    project->SaveFile({});
    project.reset();
    return FFolder / name;
  }

  const TempFolder FFolder;
  std::function<std::string(const std::string&)> FAskPassword;

 private:
  std::ostringstream FOut;
  std::ostringstream FErr;
};
