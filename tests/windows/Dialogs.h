// The control's dialogs as a person meets them: found on the screen, read, and closed.
#pragma once

#include "tests/windows/Support.h"

namespace dlv::test {

/// A visible child of that text, at any depth; null when there is none.
HWND FindChild(HWND parent, const std::wstring& text);
/// The dialog that is open on this thread; null when none is.
HWND OpenDialog();
/// Presses the left button over a window's middle and lets it go.
void Click(HWND window);

/// The menu that is open; null when none is.
HWND OpenMenu();
/// Presses the mouse over a button of the tool bar: the one that opens the profile menu, or the about box.
enum class Tool : WPARAM { Profiles = 3, About = 5 };
void Press(const HostedControl& control, Tool tool);

/// Uses the menus and dialogs that open on this thread, one after the other, in whatever message loop it is.
class Person {
public:
    /// What is done in a window: false to try again a little later.
    using Act = std::function<bool(HWND window)>;

    /// The first window that opens gets the first act, and so on.
    explicit Person(std::vector<Act> acts);
    ~Person();
    Person(const Person&) = delete;
    Person& operator=(const Person&) = delete;

    /// Whether all acts were done.
    bool Done() const { return next_ == acts_.size(); }
    /// From now on whatever opens is closed.
    void CloseAll() { closing_ = true; }

    // What a person does.

    /// Goes to an entry of a menu, and over it into others, by keys.
    static Act Keys(std::vector<WPARAM> keys);
    static Act Press(std::wstring caption);
    /// Types a name and presses OK.
    static Act Name(std::wstring name);
    /// Chooses a line of the list, from 0, and presses a button.
    static Act Line(int line, std::wstring caption);

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD);
    void Look();

    static inline Person* current_ = nullptr;
    std::vector<Act> acts_;
    std::size_t next_ = 0;
    HWND last_ = nullptr;
    bool acting_ = false;
    bool closing_ = false;
    UINT_PTR timer_ = 0;
};

/// Looks for a dialog every few milliseconds, in whatever message loop this thread is, and calls back for
/// each that opens.
class DialogWatch {
public:
    explicit DialogWatch(std::function<void(HWND dialog)> found);
    ~DialogWatch();
    DialogWatch(const DialogWatch&) = delete;
    DialogWatch& operator=(const DialogWatch&) = delete;

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD);

    static inline DialogWatch* current_ = nullptr;
    std::function<void(HWND)> found_;
    UINT_PTR timer_ = 0;
    HWND last_ = nullptr;
};

/// Notes what each dialog says and closes it.
class DialogCloser {
public:
    DialogCloser();
    int Closed() const { return closed_; }
    const std::vector<std::wstring>& Texts() const { return texts_; }
    bool Showed(const std::wstring& text) const;

private:
    int closed_ = 0;
    std::vector<std::wstring> texts_;
    DialogWatch watch_;
};

}  // namespace dlv::test
