#include "windows/com/ControlPlatform.h"

#include "windows/com/Strings.h"
#include "windows/dialogs/Dialogs.h"
#include "windows/output/FileChoice.h"
#include "windows/output/PrinterChoice.h"
#include "windows/output/SafeFile.h"

namespace dlv {

namespace {

std::wstring LocaleText(LCID locale, LCTYPE type) {
    constexpr int kLongest = 80;  // as the system documents it for these types
    wchar_t text[kLongest] = {};
    const int length = GetLocaleInfoW(locale, type, text, kLongest);
    return length > 0 ? std::wstring(text, static_cast<std::size_t>(length) - 1) : std::wstring();
}

}  // namespace

std::string TimeFormatOf(std::wstring_view systemFormat) {
    std::string format;
    bool literal = false;
    for (std::size_t i = 0; i < systemFormat.size();) {
        const wchar_t letter = systemFormat[i];
        std::size_t run = 1;
        while (i + run < systemFormat.size() && systemFormat[i + run] == letter) ++run;
        i += run;
        if (letter == L'\'') {
            // Two in a row are one that is meant.
            format.append(run / 2, '\'');
            if (run % 2 != 0) literal = !literal;
            continue;
        }
        const std::string plain = Narrow(std::wstring(run, letter));
        if (literal) {
            for (const char c : plain) format += {'\\', c};
        } else if (letter == L'm') {
            format.append(run, 'n');
        } else if (letter == L't') {
            format += run == 1 ? "A/P" : "AM/PM";
        } else {
            format += plain;
        }
    }
    return format;
}

TimeOfDay ControlPlatform::Now() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return now.wHour * 3600 + now.wMinute * 60 + now.wSecond;
}

LocaleTime ControlPlatform::TimeSettings() {
    LocaleTime settings;
    const std::string separator = Narrow(LocaleText(ambience_.Locale(), LOCALE_STIME));
    const std::string format = TimeFormatOf(LocaleText(ambience_.Locale(), LOCALE_STIMEFORMAT));
    if (!separator.empty()) settings.separator = separator;
    if (!format.empty()) settings.format = format;
    return settings;
}

std::string ControlPlatform::DateAndTime() {
    constexpr int kLongest = 128;
    wchar_t date[kLongest] = {};
    wchar_t time[kLongest] = {};
    const LCID locale = ambience_.Locale();
    GetDateFormatW(locale, DATE_SHORTDATE, nullptr, nullptr, date, kLongest);
    GetTimeFormatW(locale, TIME_NOSECONDS, nullptr, nullptr, time, kLongest);
    return Narrow(std::wstring_view(date)) + ' ' + Narrow(std::wstring_view(time));
}

std::string ControlPlatform::InterfaceLanguage() {
    switch (PRIMARYLANGID(GetUserDefaultUILanguage())) {
        case LANG_PORTUGUESE: return "PO";
        case LANG_SPANISH: return "SP";
        default: return "EN";
    }
}

double ControlPlatform::SurfaceWidth() {
    const ControlWindow* window = activation_.Window();
    return window != nullptr ? window->SurfaceWidth() : extent_.TwipsWide() * Shrinking();
}

double ControlPlatform::SurfaceHeight() {
    const ControlWindow* window = activation_.Window();
    return window != nullptr ? window->SurfaceHeight() : extent_.TwipsHigh() * Shrinking();
}

// What is zoomed has less room than there is.
double ControlPlatform::Shrinking() const {
    return static_cast<double>(activation_.Dpi()) / activation_.CurrentZoom().scale.Dpi();
}

double ControlPlatform::TextWidth(std::string_view text, bool bold) {
    const Zoom zoom = activation_.CurrentZoom();
    const FontChoice choice = zoom.appearance.Font();
    const Scale scale = zoom.scale;
    if (!measuring_ || measuring_->dpi != scale.Dpi() || measuring_->choice != choice)
        measuring_.emplace(Measuring{choice, scale.Dpi(), Fonts(choice, scale)});
    return scale.ToTwips(measuring_->fonts.TextWidth(Wide(text), bold ? Weight::Bold : Weight::Regular));
}

void ControlPlatform::Flush() {
    if (ControlWindow* window = activation_.Window()) window->Flush();
}

void ControlPlatform::ShowModal(ModalForm& form) { dlv::ShowModal(host_, form, ambience_.Look().Font()); }

Answer ControlPlatform::ShowMessageBox(const MessageBox& box) { return dlv::ShowMessageBox(host_, box); }

std::string ControlPlatform::ChooseSaveFile(const SaveDialog& dialog) {
    return dlv::ChooseSaveFile(host_, dialog);
}

std::unique_ptr<OutputFile> ControlPlatform::MakeFile(const std::string& name) {
    return std::make_unique<SafeFile>(Wide(name));
}

std::unique_ptr<Printer> ControlPlatform::ChoosePrinter(Printer::Orientation proposed) {
    return dlv::ChoosePrinter(host_, proposed, ambience_.Look().Font());
}

void ControlPlatform::ShowProfileMenu() {
    if (ControlWindow* window = activation_.Window()) window->ShowProfileMenu();
}

void ControlPlatform::ProcessPendingMessages() { dlv::ProcessPendingMessages(); }

}  // namespace dlv
