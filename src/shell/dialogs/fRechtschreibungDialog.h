#pragma once

#include "fSpellingUi.h"
#include "uOptions.h"

/// The options of the spelling check. True if the dialog ended with OK: what was ticked stands in the options then, and
/// holds for dialogs that are opened afterwards.
bool EditRechtschreibung(TTickDialogUi& ui, TMyTessaronOptions& options);
