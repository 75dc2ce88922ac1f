#include "ui/CaptionCatalogue.h"

#include <gtest/gtest.h>

#include "base/RunTimeError.h"
#include "widgets/GridKeys.h"

namespace dlv {

namespace {

/// A host that knows one key, and says its language ("" for none) at first and another one later.
class Host : public CaptionSource {
public:
    explicit Host(std::string language) : language_(std::move(language)) {}
    std::optional<std::string> Caption(std::string_view key) override {
        if (key == "broken") RaiseInvalidCall();
        return key == "View" ? std::optional<std::string>("Show!") : std::nullopt;
    }
    std::optional<std::string> LanguageID() override {
        std::string language = std::exchange(language_, "SP");
        if (language.empty()) return std::nullopt;
        return language;
    }

private:
    std::string language_;
};

TEST(CaptionCatalogue, AsksTheHostThenItsLanguageThenEnglishThenTheKey) {
    const struct {
        const char* name;
        std::shared_ptr<CaptionSource> source;
        const char* user;
        const char* language;
        const char* view;
        const char* open;
    } rows[] = {{"no host", nullptr, "PO", "PO", "Exibir", "Abertas"},
                {"no host, unknown user", nullptr, "FR", "EN", "View", "Open"},
                {"host's language", std::make_shared<Host>("SP"), "PO", "SP", "Show!", "Abiertas"},
                {"host without one", std::make_shared<Host>(""), "PO", "PO", "Show!", "Abertas"},
                {"host with an unknown one", std::make_shared<Host>("po"), "EN", "EN", "Show!", "Open"}};
    for (const auto& row : rows) {
        CaptionCatalogue captions;
        captions.Attach(row.source, row.user);
        EXPECT_EQ(captions.Language(), row.language) << row.name;
        EXPECT_EQ(captions.Caption("View"), row.view) << row.name;
        EXPECT_EQ(captions.Caption("Open"), row.open)
            << row.name << ": the language stays what it was at first";
        EXPECT_EQ(captions.Caption(CaptionKey::Unchecked("no such key")), "no such key") << row.name;
        EXPECT_EQ(captions.Caption(CaptionKey::Unchecked("")), "") << row.name;
    }
}

/// Which of "%1" to "%4" stand in a text.
std::string Places(std::string_view text) {
    std::string places;
    for (const char number : std::string_view("1234"))
        if (text.find(std::string("%") + number) != std::string_view::npos) places += number;
    return places;
}

TEST(BuiltInWords, TakeTheSameValuesInEveryLanguage) {
    for (const CaptionRow& row : kCaptionTable)
        for (const std::string_view text : {row.portuguese, row.spanish})
            EXPECT_EQ(Places(text), Places(row.english)) << row.key << ": " << text;
}

TEST(BuiltInWords, AreThereForTheMenuOfGrids) {
    for (const GridMenuItem& item : GridMenu())
        EXPECT_TRUE(item.caption.empty() || HasCaption(item.caption)) << item.caption;
}

TEST(CaptionCatalogue, GivesKeysBeforeItIsAttached) {
    EXPECT_EQ(CaptionCatalogue().Caption("NotDone"), "NotDone") << "which is \"Not Done\" later";
}

TEST(CaptionCatalogue, FailsWithWhatTheHostFailsWith) {
    CaptionCatalogue captions;
    captions.Attach(std::make_shared<Host>("EN"), "EN");
    EXPECT_THROW(captions.Caption(CaptionKey::Unchecked("broken")), RunTimeError);
}

}  // namespace

}  // namespace dlv
