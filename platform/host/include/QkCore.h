#pragma once
// Exports of the host core library qkcore.
#include "IApp.h"
#include "IHelpService.h"
#include "OdString.h"

extern "C" bool CreateObjectC(const char* className, int reserved, const std::type_info& type, void** out);

/// A text of the user interface in the user's language; the text itself where there is no translation.
OdString Supp_Translate(const wchar_t* text);
OdString Supp_Translate(const char* text);
/// Translates the texts of a dialog's own window and returns how many changed. Without windows there are
/// none.
int Supp_Translate(void* window);

/// The font of the host's user interface; null where there are no windows.
void* Supp_GetFont();

/// The help service, with a reference.
IHelpService* Get_IHelpService();
