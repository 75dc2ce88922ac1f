// Reads what windows tell a screen reader, from any process: their names and roles, and the outline of a grid
// row by row, with levels, what is open or closed, headings and texts. Nothing is known here of how it is
// made; only the accessible interfaces are asked. Every row is fetched when it is asked for, and all fetching
// is counted.
#pragma once

#include <windows.h>

#include <oleacc.h>
#include <wrl/client.h>

#include <string>
#include <vector>

namespace dlv::reader {

using Microsoft::WRL::ComPtr;

/// One accessible object. A call that fails leaves its part empty; `result` is the first failure.
struct Told {
    std::string name;
    std::string value;
    std::string description;
    std::string action;
    LONG role = 0;
    LONG state = 0;
    HRESULT result = S_OK;
};
Told Ask(IAccessible* object, LONG child = CHILDID_SELF);

struct ToldWindow {
    HWND handle = nullptr;
    std::string className;
    Told told;
};
/// The windows inside `outer` that are to be seen, outer ones first.
std::vector<ToldWindow> WindowsIn(HWND outer);
/// The first of them of that class, counted from 0; null when there are fewer.
HWND WindowOf(HWND outer, const wchar_t* className, int which = 0);

struct ToldCell {
    std::string heading;
    std::string text;
};

struct ToldRow {
    enum class Node { None, Open, Closed };
    std::string name;
    int level = 0;
    /// "L2, 1 of 3 with 0".
    std::string position;
    Node node = Node::None;
    LONG state = 0;
    std::vector<ToldCell> cells;
};

class GridReader {
public:
    /// `grid` is the window of a grid; what is not one has no rows.
    explicit GridReader(HWND grid);

    bool IsOutline();
    std::string Name();
    /// Header rows and displayed rows; row ids count from 1.
    LONG RowCount();
    LONG HeaderRows();
    /// The texts of a header row's cells.
    std::vector<std::string> Headings(LONG header);
    ToldRow Row(LONG id);
    /// All displayed rows, below the header.
    std::vector<ToldRow> Rows();

    IAccessible* Object() const { return grid_.Get(); }
    ComPtr<IAccessible> Child(IAccessible* parent, LONG id);
    /// How many objects were fetched so far.
    long Fetched() const { return fetched_; }

private:
    std::vector<ComPtr<IAccessible>> Children(IAccessible* parent);

    ComPtr<IAccessible> grid_;
    long fetched_ = 0;
};

/// An object that came as an IDispatch.
ComPtr<IAccessible> AsAccessible(IDispatch* object);
std::string Utf8(const wchar_t* text);
/// The states that matter here, in words.
std::string StateWords(LONG state);
std::string RoleWord(LONG role);
std::string Line(const ToldRow& row);

}  // namespace dlv::reader
