#include "windows/hwnd/GridMenuWindow.h"

#include <string>
#include <vector>

#include "widgets/AccessKeys.h"
#include "widgets/GridWalk.h"
#include "windows/gdi/FacePainter.h"
#include "windows/hwnd/PopupMenu.h"

namespace dlv {

std::optional<GridCommand> ChooseGridCommand(const OutlineGrid& grid, WindowHost& host, HWND owner,
                                             POINT place) {
    const auto items = GridMenu();
    std::vector<std::string> captions;
    for (const GridMenuItem& item : items)
        captions.push_back(item.caption.empty() ? std::string()
                                                : host.Viewer().Caption(CaptionKey::Unchecked(item.caption)));
    const std::vector<AccessKey> keys = ChooseAccessKeys(captions);
    PopupMenu menu;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (captions[i].empty()) {
            menu.AddLine();
            continue;
        }
        std::string text = WithAccessKey(captions[i], keys[i]);
        if (!items[i].key.empty()) text.append("\t").append(items[i].key);
        menu.Add(text, static_cast<UINT>(i + 1),
                 CanRunGridCommand(grid, items[i].command) ? MF_ENABLED : MF_GRAYED);
    }
    const UINT chosen = menu.Choose(owner, place);
    if (chosen == 0) return std::nullopt;
    return items[chosen - 1].command;
}

}  // namespace dlv
