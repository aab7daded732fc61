#include "disk/disk.h"
#include "disk/names_windows.h"
#include "krt/commands.h"
#include "krt/deadline.h"
#include "krt/programs.h"
#include "krt/streams.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>

namespace krt {

namespace {

using disk::Handle;

UINT console_before = 0;

} // namespace

void begin_process() {
    ::SetErrorMode(SEM_FAILCRITICALERRORS); // a drive without its disk is a failure like others
    for (auto* const stream : {stdin, stdout, stderr})
        ::_setmode(::_fileno(stream), _O_BINARY);
    console_before = ::GetConsoleOutputCP();
    ::SetConsoleOutputCP(CP_UTF8);
    std::atexit([] {
        if (console_before != 0)
            ::SetConsoleOutputCP(console_before); // it is the user's, who goes on in it
    });
}

namespace {

/// What is run, and all that it starts, belongs to one job, which ends with this process.
HANDLE job = nullptr;
HANDLE timer = nullptr;

void CALLBACK give_up(void*, BOOLEAN) {
    if (job != nullptr)
        ::TerminateJobObject(job, static_cast<UINT>(Status::findings));
    ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(Status::findings));
}

} // namespace

Deadline::Deadline(std::chrono::milliseconds time) {
    ::CreateTimerQueueTimer(&timer, nullptr, give_up, nullptr, static_cast<DWORD>(time.count()), 0,
                            WT_EXECUTEONLYONCE | WT_EXECUTEINTIMERTHREAD);
}

void Deadline::lift() {
    if (timer != nullptr)
        ::DeleteTimerQueueTimer(nullptr, timer, INVALID_HANDLE_VALUE);
    timer = nullptr;
}

namespace {

/// Handed to the program that is started.
SECURITY_ATTRIBUTES inherited() {
    return {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
}

/// A file and not a pipe: the program may end before it has read everything.
Handle file_of(std::string_view bytes) {
    std::array<wchar_t, MAX_PATH + 1> folder{};
    std::array<wchar_t, MAX_PATH + 1> name{};
    ::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
    if (::GetTempFileNameW(folder.data(), L"krt", 0, name.data()) == 0)
        return nullptr;
    auto rights = inherited();
    auto const opened =
        ::CreateFileW(name.data(), GENERIC_READ | GENERIC_WRITE | DELETE, FILE_SHARE_READ, &rights,
                      CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    auto file = disk::handle_or_none(opened);
    DWORD put = 0;
    bool const whole =
        file &&
        ::WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &put, nullptr) &&
        put == bytes.size() && ::SetFilePointerEx(file.get(), {}, nullptr, FILE_BEGIN);
    return whole ? std::move(file) : nullptr;
}

/// A word as the started program takes it apart again.
std::wstring quoted(std::wstring const& word) {
    std::wstring text = L"\"";
    std::size_t slashes = 0;
    for (wchar_t const letter : word) {
        // Backslashes count only before a quote.
        text.append(letter == L'"' ? slashes + 1 : 0, L'\\');
        slashes = letter == L'\\' ? slashes + 1 : 0;
        text += letter;
    }
    text.append(slashes, L'\\');
    return text + L'"';
}

std::wstring command_line(Program const& program, std::vector<std::string> const& words) {
    auto line = quoted(disk::path_of(program.file).native());
    for (auto const* const some : {&program.words, &words})
        for (auto const& word : *some)
            line += L' ' + quoted(disk::wide_text(word)); // as given, however long
    return line;
}

/// Up to the end or one byte beyond the limit.
std::string read_to_end(HANDLE from, std::size_t most_bytes) {
    std::string bytes;
    std::array<char, 64 * 1024> piece;
    DWORD got = 0;
    while (bytes.size() <= most_bytes &&
           ::ReadFile(from, piece.data(), static_cast<DWORD>(piece.size()), &got, nullptr) &&
           got > 0)
        bytes.append(piece.data(), got);
    return bytes;
}

/// A job that takes all that is in it along when this process ends.
Handle new_job() {
    Handle made(::CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    ::SetInformationJobObject(made.get(), JobObjectExtendedLimitInformation, &limits,
                              sizeof limits);
    return made;
}

struct Started {
    Handle process;
    Handle job;
};

Started start(Program const& program, std::vector<std::string> const& words, HANDLE in,
              HANDLE out) {
    STARTUPINFOW streams{};
    streams.cb = sizeof streams;
    streams.dwFlags = STARTF_USESTDHANDLES;
    streams.hStdInput = in;
    streams.hStdOutput = out;
    streams.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
    ::SetHandleInformation(streams.hStdError, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    auto line = command_line(program, words);
    PROCESS_INFORMATION begun{};
    // Into its job before it can start anything itself.
    if (!::CreateProcessW(disk::path_of(program.file).c_str(), line.data(), nullptr, nullptr, TRUE,
                          CREATE_SUSPENDED, nullptr, nullptr, &streams, &begun))
        return {};
    Handle const thread(begun.hThread);
    Started started{Handle(begun.hProcess), new_job()};
    ::AssignProcessToJobObject(started.job.get(), begun.hProcess);
    job = started.job.get();
    ::ResumeThread(begun.hThread);
    return started;
}

} // namespace

std::optional<Program> find_painter() {
    std::wstring self(32768, L'\0');
    self.resize(::GetModuleFileNameW(nullptr, self.data(), static_cast<DWORD>(self.size())));
    auto const folder = disk::text_of(std::filesystem::path(self).parent_path()) + "\\";
    auto const is_file = [](std::string const& name) {
        return disk::kind_of(name) == disk::Kind::file;
    };
    if (is_file(folder + "krt-draw.exe"))
        return Program{folder + "krt-draw.exe"};
    // The editor paints too, so that nothing else need lie beside it.
    if (is_file(folder + "kehystin.exe"))
        return Program{folder + "kehystin.exe", {"--draw"}};
    return std::nullopt;
}

std::optional<Ran> run(Program const& program, std::vector<std::string> const& words,
                       std::string_view input, std::size_t most_bytes) {
    auto const in = file_of(input);
    auto rights = inherited();
    HANDLE ends[2];
    if (!in || !::CreatePipe(&ends[0], &ends[1], &rights, 0))
        return std::nullopt;
    Handle from(ends[0]);
    Handle to(ends[1]);
    ::SetHandleInformation(from.get(), HANDLE_FLAG_INHERIT, 0);
    auto const started = start(program, words, in.get(), to.get());
    if (!started.process)
        return std::nullopt;
    to.reset();
    Ran ran{read_to_end(from.get(), most_bytes)};
    from.reset(); // a program that still writes ends
    ::WaitForSingleObject(started.process.get(), INFINITE);
    DWORD status = 0;
    constexpr DWORD crashes = 0xC0000000; // and above
    if (::GetExitCodeProcess(started.process.get(), &status) && status < crashes)
        ran.status = static_cast<int>(status);
    job = nullptr;
    return ran;
}

} // namespace krt
