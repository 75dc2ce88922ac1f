#include "tests/windows/Apartment.h"

namespace dlv::test {

Apartment::Apartment(Kind kind)
    : wake_(CreateEventW(nullptr, FALSE, FALSE, nullptr)),
      ended_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
    const Library& library = ControlLibrary();  // before the thread needs it
    static_cast<void>(library);
    thread_ = std::thread([this, kind] { Run(kind); });
}

Apartment::~Apartment() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    SetEvent(wake_);
    // Its last objects may have to tell ours of their end.
    DWORD index = 0;
    CoWaitForMultipleHandles(0, INFINITE, 1, &ended_, &index);
    thread_.join();
    CloseHandle(wake_);
    CloseHandle(ended_);
}

void Apartment::Do(std::function<void()> work) {
    HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    {
        const std::lock_guard lock(mutex_);
        queue_.push_back({std::move(work), done});
    }
    SetEvent(wake_);
    DWORD index = 0;
    EXPECT_EQ(CoWaitForMultipleHandles(0, INFINITE, 1, &done, &index), S_OK);
    CloseHandle(done);
}

void Apartment::Run(Kind kind) {
    if (kind == Kind::Single) {
        OleInitialize(nullptr);
    } else {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    }
    {
        const Library::Scope classes(ControlLibrary());
        while (!Ending()) {
            while (DoNext()) {
            }
            if (kind == Kind::Single) {
                MsgWaitForMultipleObjects(1, &wake_, FALSE, INFINITE, QS_ALLINPUT);
                PumpMessages();
            } else {
                WaitForSingleObject(wake_, INFINITE);
            }
        }
    }
    if (kind == Kind::Single) {
        OleUninitialize();
    } else {
        CoUninitialize();
    }
    SetEvent(ended_);
}

bool Apartment::DoNext() {
    Work work;
    {
        const std::lock_guard lock(mutex_);
        if (queue_.empty()) return false;
        work = std::move(queue_.front());
        queue_.pop_front();
    }
    work.body();
    work.body = nullptr;
    SetEvent(work.done);
    return true;
}

bool Apartment::Ending() {
    const std::lock_guard lock(mutex_);
    return ending_ && queue_.empty();
}

}  // namespace dlv::test
