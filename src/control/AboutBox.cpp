#include "control/AboutBox.h"

#include "Version.h"
#include "ui/frmGenAbout.h"

namespace dlv {

namespace {

struct AboutTexts {
    std::string_view language;
    std::string_view description;
    std::string_view rights;
};

constexpr AboutTexts kTexts[] = {
    {"EN", "Real-Time BusinessUnit Productivity", "Copyright © Dashlon. All rights reserved."},
    {"PO", "Produtividade de Hora Real de Unidades de Negócios",
     "Copyright © Dashlon. Todos os direitos reservados."},
    {"SP", "Productividad de Hora Real de Unidades de Negocios",
     "Copyright © Dashlon. Todos los derechos reservados."},
};

AboutTexts TextsFor(std::string_view language) {
    for (const AboutTexts& texts : kTexts)
        if (texts.language == language) return texts;
    return {};
}

}  // namespace

void ShowAboutBox(Outside& outside, Platform& platform, const CaptionCatalogue& captions,
                  std::string_view languageID, ModalOwner& owner) {
    const AboutTexts texts = TextsFor(languageID);
    frmGenAbout box(outside,
                    [&](std::string_view text, bool bold) { return platform.TextWidth(text, bold); });
    box.lblVerText.SetCaption(captions.Caption("Version"));
    box.cmdOK.SetCaption(captions.Caption("OK"));
    box.ShowAbout(captions.Caption("AboutDLV"), DLV_PRODUCT_NAME, std::string(texts.description),
                  DLV_COMMENTS, std::string(texts.rights), DLV_VERSION_TEXT, &owner);
}

}  // namespace dlv
