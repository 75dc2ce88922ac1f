#include "player/windows/Hand.h"

#include <vector>

#include "windows/com/Strings.h"

namespace dlv::player {

namespace {

INPUT KeyInput(WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    // The keys between the letters and the number pad.
    if ((key >= VK_PRIOR && key <= VK_DOWN) || key == VK_DELETE) input.ki.dwFlags |= KEYEVENTF_EXTENDEDKEY;
    return input;
}

INPUT MouseInput(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    return input;
}

void Send(std::vector<INPUT> inputs) {
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace

void Hand::Aim(POINT point) {
    if (point.x == last_.x && point.y == last_.y) point.x += 2 * GetSystemMetrics(SM_CXDOUBLECLK);
    last_ = point;
    SetCursorPos(point.x, point.y);
}

void Hand::Click(POINT point, int times) {
    Aim(point);
    for (int i = 0; i < times; ++i) {
        Send({MouseInput(MOUSEEVENTF_LEFTDOWN), MouseInput(MOUSEEVENTF_LEFTUP)});
        Settle();
    }
}

void Hand::ClickForNext(POINT point) {
    Aim(point);
    Send({MouseInput(MOUSEEVENTF_LEFTDOWN), MouseInput(MOUSEEVENTF_LEFTUP)});
}

POINT Hand::MiddleOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

void Hand::Click(HWND window) { Click(MiddleOf(window)); }

void Hand::Press(WORD key, std::initializer_list<WORD> held, int times) {
    for (int i = 0; i < times; ++i) {
        PressForNext(key, held);
        Settle();
    }
}

void Hand::PressForNext(WORD key, std::initializer_list<WORD> held) {
    std::vector<INPUT> inputs;
    for (const WORD other : held) inputs.push_back(KeyInput(other, 0));
    inputs.push_back(KeyInput(key, 0));
    inputs.push_back(KeyInput(key, KEYEVENTF_KEYUP));
    for (const WORD other : held) inputs.push_back(KeyInput(other, KEYEVENTF_KEYUP));
    Send(std::move(inputs));
}

void Hand::TypeForNext(const std::string& text) {
    for (const wchar_t character : Wide(text)) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wScan = character;
        input.ki.dwFlags = KEYEVENTF_UNICODE;
        INPUT release = input;
        release.ki.dwFlags |= KEYEVENTF_KEYUP;
        Send({input, release});
    }
}

// On a busy machine a timer is due again as soon as its message has been handled: those alone do not count as
// something that waits.
void Hand::Settle() {
    constexpr int kTimersInARow = 3;
    MSG message;
    do {
        for (int timers = 0;
             timers < kTimersInARow && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;) {
            timers = message.message == WM_TIMER ? timers + 1 : 0;
            if (translate_(message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    } while (HIWORD(GetQueueStatus(QS_INPUT | QS_POSTMESSAGE | QS_PAINT)) != 0);
}

}  // namespace dlv::player
