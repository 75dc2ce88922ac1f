#include "windows/access/AccessibleText.h"

namespace dlv {

std::string AccessibleText::Name() {
    const std::string heading = screen_.Heading();
    return heading.empty() ? screen_.Text() : heading + ": " + screen_.Text();
}

HRESULT AccessibleText::Act() {
    if (screen_.ClickText().empty()) return DISP_E_MEMBERNOTFOUND;
    PostMessageW(Surface(), kAccessAction, 0, 0);
    return S_OK;
}

}  // namespace dlv
