// A run-time error: the number and text that the user sees in the error dialog and the host sees
// in its error information. Thrown wherever an operation cannot do what it promises; caught only
// by the trap of the procedure that must not fail towards its caller.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace dlv {

class RunTimeError : public std::runtime_error {
public:
    RunTimeError(std::int32_t number, const std::string& description)
        : std::runtime_error(description), number_(number) {}

    std::int32_t Number() const noexcept { return number_; }
    std::string Description() const { return what(); }

private:
    std::int32_t number_;
};

inline constexpr std::int32_t kErrorInvalidCall = 5;
inline constexpr std::int32_t kErrorOverflow = 6;
inline constexpr std::int32_t kErrorOutOfMemory = 7;
inline constexpr std::int32_t kErrorSubscript = 9;
inline constexpr std::int32_t kErrorTypeMismatch = 13;
inline constexpr std::int32_t kErrorDevice = 57;
inline constexpr std::int32_t kErrorDuplicateKey = 457;
inline constexpr std::int32_t kErrorPrinter = 482;
inline constexpr std::int32_t kErrorTableMissing = 1001;
inline constexpr std::int32_t kErrorColumnMissing = 1002;
inline constexpr std::int32_t kErrorDocument = 1003;
inline constexpr std::int32_t kErrorCallOrder = 1004;

[[noreturn]] void RaiseInvalidCall();
[[noreturn]] void RaiseOverflow();
[[noreturn]] void RaiseSubscript();
[[noreturn]] void RaiseTypeMismatch();
[[noreturn]] void RaiseDuplicateKey();
/// A file that cannot be written.
[[noreturn]] void RaiseDevice();
[[noreturn]] void RaisePrinter();
[[noreturn]] void RaiseTableMissing(std::string_view table);
[[noreturn]] void RaiseColumnMissing(std::string_view column, std::string_view table);
/// Line and column count from 1; the column counts characters.
[[noreturn]] void RaiseDocument(std::size_t line, std::size_t column, std::string_view what);
/// A call out of its order: "Call METHOD is not possible now: WHY".
[[noreturn]] void RaiseCallOrder(std::string_view method, std::string_view why);

}  // namespace dlv
