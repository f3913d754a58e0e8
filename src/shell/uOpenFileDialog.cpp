#include "uOpenFileDialog.h"

#include "VantrelPublished.h"

const TVantrelClass* TOpenFileDialog::ClassReference() const {
  static constexpr TVantrelProperty properties[] = {
      Published<&TOpenFileDialog::GetInitialDir, &TOpenFileDialog::SetInitialDir>("InitialDir")};
  static constexpr TVantrelClass reference = {.Name = "TOpenFileDialog", .Properties = properties};
  return &reference;
}
