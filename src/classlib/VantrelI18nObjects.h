#pragma once

#include "VantrelClasses.h"
#include "VantrelI18n.h"

/// Translates the text properties of the object, of the objects in its properties, and of the items of lists among
/// them; of a list of texts each text by itself. Properties that are public but not published count only if
/// `includePublicMembers`. Pictures and read-only texts stay as they are.
void TranslateStrings(const TVantrelI18nManager& manager, TVantrelObject& object, bool includePublicMembers = false);
