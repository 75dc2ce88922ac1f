#include "widgets/Output.h"

namespace dlv {

std::string PageText(const PrintedPage& page) {
    std::string text;
    const PrintedPage::Text* before = nullptr;
    for (const PrintedPage::Text& piece : page.texts) {
        if (before != nullptr) text += before->place.top == piece.place.top ? '\t' : '\n';
        text += piece.text;
        before = &piece;
    }
    if (before != nullptr) text += '\n';
    return text;
}

}  // namespace dlv
