#include "hosts/reader/EventLog.h"

#include <utility>

#include "hosts/reader/AccessibleReader.h"

namespace dlv::reader {

namespace {

const char* WordFor(DWORD event) {
    switch (event) {
        case EVENT_OBJECT_FOCUS: return "focus";
        case EVENT_OBJECT_SELECTION: return "selection";
        case EVENT_OBJECT_SELECTIONWITHIN: return "selection within";
        case EVENT_OBJECT_STATECHANGE: return "state";
        case EVENT_OBJECT_REORDER: return "reorder";
        case EVENT_OBJECT_NAMECHANGE: return "name";
        case EVENT_OBJECT_VALUECHANGE: return "value";
        case EVENT_SYSTEM_ALERT: return "alert";
        default: return nullptr;
    }
}

}  // namespace

// All windows are listened to and the others passed over: Wine tells nothing of a single foreign thread.
EventLog::EventLog(HWND window) : window_(window) {
    current_ = this;
    hooks_.push_back(
        SetWinEventHook(EVENT_SYSTEM_ALERT, EVENT_SYSTEM_ALERT, nullptr, Heard, 0, 0, WINEVENT_OUTOFCONTEXT));
    hooks_.push_back(SetWinEventHook(EVENT_OBJECT_REORDER, EVENT_OBJECT_VALUECHANGE, nullptr, Heard, 0, 0,
                                     WINEVENT_OUTOFCONTEXT));
}

EventLog::~EventLog() {
    for (const HWINEVENTHOOK hook : hooks_) UnhookWinEvent(hook);
    current_ = nullptr;
}

// What an event names is asked for only now: while another process answers, further events would come in
// between.
std::vector<std::string> EventLog::Take() {
    std::vector<std::string> lines;
    for (const Event& event : std::exchange(events_, {})) lines.push_back(Line(event));
    return lines;
}

void CALLBACK EventLog::Heard(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD,
                              DWORD) {
    if (current_ == nullptr || WordFor(event) == nullptr || object != OBJID_CLIENT) return;
    if (window != current_->window_ && !IsChild(current_->window_, window)) return;
    current_->events_.push_back({event, window, child});
}

std::string EventLog::Line(const Event& event) {
    const std::string word = WordFor(event.event);
    ComPtr<IAccessible> source;
    VARIANT id;
    VariantInit(&id);
    const HRESULT found = AccessibleObjectFromEvent(event.window, static_cast<DWORD>(OBJID_CLIENT),
                                                    static_cast<DWORD>(event.child), &source, &id);
    if (FAILED(found)) return word + " of something gone";
    const Told told = Ask(source.Get(), id.vt == VT_I4 ? id.lVal : CHILDID_SELF);
    std::string line = word + " " + RoleWord(told.role) + " " + told.name;
    if (told.role == ROLE_SYSTEM_CELL) line += " = " + told.value;
    const std::string states = StateWords(told.state);
    return line + (states.empty() ? "" : " (" + states + ")");
}

}  // namespace dlv::reader
