// The ambient properties that a container offers to its controls.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <olectl.h>
#include <wrl/client.h>

#include <string>

namespace dlv::container {

struct Ambients {
    bool userMode = true;
    bool userInterfaceDead = false;
    OLE_COLOR backColor = 0x80000000u | COLOR_BTNFACE;
    OLE_COLOR foreColor = 0x80000000u | COLOR_BTNTEXT;
    LCID locale = LOCALE_USER_DEFAULT;
    std::wstring displayName = L"Viewer";
    /// Null: controls choose their own.
    Microsoft::WRL::ComPtr<IFontDisp> font;

    /// DISP_E_MEMBERNOTFOUND for one that is not offered.
    HRESULT Get(DISPID id, VARIANT& value) const;
};

}  // namespace dlv::container
