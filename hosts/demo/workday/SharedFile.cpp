#include "hosts/demo/workday/SharedFile.h"

#include <fcntl.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <memory>
#include <system_error>
#include <thread>

#include "base/RunTimeError.h"

#ifdef _WIN32
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#else
#include <sys/file.h>
#include <unistd.h>
#endif

namespace dlv::demo {

namespace {

namespace fs = std::filesystem;

/// How often is tried what another program is in the way of: one of us, or one that only looks, as a virus
/// scanner.
constexpr int kAttemptsToLock = 600;
constexpr int kAttempts = 100;
constexpr std::chrono::milliseconds kPause{5};

#ifdef _WIN32
std::FILE* Open(const fs::path& path, const wchar_t* mode) { return _wfopen(path.c_str(), mode); }
constexpr const wchar_t* kReading = L"rb";
constexpr const wchar_t* kWriting = L"wb";

int OpenLocked(const fs::path& path) {
    int descriptor = -1;
    errno = _wsopen_s(&descriptor, path.c_str(), _O_CREAT | _O_RDWR | _O_NOINHERIT, _SH_DENYRW,
                      _S_IREAD | _S_IWRITE);
    return descriptor;
}

void Close(int descriptor) { _close(descriptor); }
bool Sync(std::FILE* file) { return _commit(_fileno(file)) == 0; }
#else
std::FILE* Open(const fs::path& path, const char* mode) { return std::fopen(path.c_str(), mode); }
constexpr const char* kReading = "rbe";
constexpr const char* kWriting = "wbe";

int OpenLocked(const fs::path& path) {
    const int descriptor = open(path.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
    if (descriptor < 0 || flock(descriptor, LOCK_EX | LOCK_NB) == 0) return descriptor;
    const int reason = errno;
    close(descriptor);
    errno = reason;
    return -1;
}

void Close(int descriptor) { close(descriptor); }
bool Sync(std::FILE* file) { return fsync(fileno(file)) == 0; }
#endif

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

std::error_code LastError() { return {errno, std::generic_category()}; }

[[noreturn]] void Fail(const std::error_code& reason) {
    if (reason == std::errc::no_space_on_device) throw RunTimeError(kErrorFile, "the disk is full");
    if (reason == std::errc::permission_denied || reason == std::errc::operation_not_permitted ||
        reason == std::errc::read_only_file_system || reason == std::errc::resource_unavailable_try_again)
        throw RunTimeError(kErrorFile, "it is protected, or another program is using it");
    if (reason == std::errc::not_a_directory || reason == std::errc::no_such_file_or_directory)
        throw RunTimeError(kErrorFile, "there is no such folder");
    throw RunTimeError(kErrorFile, "the system says error " + std::to_string(reason.value()));
}

/// Tries as long as another program may be in the way; `attempt` gives what went wrong.
template <class Attempt>
void Insist(int attempts, Attempt&& attempt) {
    std::error_code reason = attempt();
    for (int i = 1; i < attempts; ++i) {
        if (reason != std::errc::permission_denied && reason != std::errc::resource_unavailable_try_again)
            break;
        std::this_thread::sleep_for(kPause);
        reason = attempt();
    }
    if (reason) Fail(reason);
}

template <class Mode>
File OpenFile(const fs::path& path, const Mode* mode) {
    File file;
    Insist(kAttempts, [&] {
        file.reset(Open(path, mode));
        return file ? std::error_code() : LastError();
    });
    return file;
}

void Move(const fs::path& from, const fs::path& to) {
    Insist(kAttempts, [&] {
        std::error_code reason;
        fs::rename(from, to, reason);
        return reason;
    });
}

fs::path Beside(const fs::path& path, std::string_view ending) {
    fs::path other = path;
    return other += PathOf(ending);
}

}  // namespace

fs::path PathOf(std::string_view text) { return std::u8string(text.begin(), text.end()); }

std::string TextOf(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

SharedFile::Lock::~Lock() {
    if (descriptor_ >= 0) Close(descriptor_);
}

SharedFile::Lock SharedFile::Acquire() const {
    std::error_code reason;
    fs::create_directories(path_.parent_path(), reason);
    if (reason) Fail(reason);
    int descriptor = -1;
    Insist(kAttemptsToLock, [&] {
        descriptor = OpenLocked(Beside(path_, ".lock"));
        return descriptor >= 0 ? std::error_code() : LastError();
    });
    return Lock(descriptor);
}

std::optional<std::string> SharedFile::Read() const {
    std::error_code reason;
    const fs::file_status status = fs::status(path_, reason);
    if (status.type() == fs::file_type::not_found) return std::nullopt;
    if (fs::is_directory(status)) throw RunTimeError(kErrorFile, "a folder stands in its place");
    const File file = OpenFile(path_, kReading);
    std::string text;
    char piece[65536];
    while (const std::size_t count = std::fread(piece, 1, sizeof piece, file.get()))
        text.append(piece, count);
    if (std::ferror(file.get()) != 0) Fail(LastError());
    if (text.empty()) throw RunTimeError(kErrorFile, "it is empty");
    return text;
}

void SharedFile::Replace(std::string_view text) const {
    const fs::path written = Beside(path_, ".new");
    std::error_code reason;
    // Some systems would move another file over one that may only be read.
    const fs::file_status status = fs::status(path_, reason);
    if (fs::exists(status) && (status.permissions() & fs::perms::owner_write) == fs::perms::none)
        Fail(std::make_error_code(std::errc::permission_denied));
    reason.clear();
    {
        const File file = OpenFile(written, kWriting);
        if (std::fwrite(text.data(), 1, text.size(), file.get()) != text.size() ||
            std::fflush(file.get()) != 0 || !Sync(file.get()))
            reason = LastError();
    }
    if (!reason) return Move(written, path_);
    std::error_code ignored;
    fs::remove(written, ignored);
    Fail(reason);
}

fs::path SharedFile::SetAside() const {
    std::error_code none;
    fs::path free;
    int number = 1;
    do {
        free = path_.parent_path() / path_.stem();
        free += PathOf(number == 1 ? " (damaged)" : " (damaged " + std::to_string(number) + ")");
        free += path_.extension();
        ++number;
    } while (fs::exists(fs::symlink_status(free, none)));
    Move(path_, free);
    return free;
}

}  // namespace dlv::demo
