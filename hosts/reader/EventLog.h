// What a window tells screen readers of by itself, as text: each event with what the object that it names
// says then.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace dlv::reader {

class EventLog {
public:
    /// Listens, from outside the process, to that window and those inside it.
    explicit EventLog(HWND window);
    ~EventLog();
    EventLog(const EventLog&) = delete;
    EventLog& operator=(const EventLog&) = delete;

    /// One line for each event since the last call, as they came.
    std::vector<std::string> Take();

private:
    static void CALLBACK Heard(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD,
                               DWORD);

    static inline EventLog* current_ = nullptr;
    struct Event {
        DWORD event;
        HWND window;
        LONG child;
    };
    static std::string Line(const Event& event);

    const HWND window_;
    std::vector<HWINEVENTHOOK> hooks_;
    std::vector<Event> events_;
};

}  // namespace dlv::reader
