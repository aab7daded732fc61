// The program is started anew for each scenario, with what it is to do in its words.
#include "disk/disk.h"
#include "tests/scenario/own_process.h"
#include "tests/scenario/process.h"

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <new>
#include <stdexcept>

#include <windows.h>

namespace scenario {

namespace {

constexpr std::string_view own_process = "--own-process"; // HANDLE FOLDER FILE

struct CloseHandleOf {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};
using Handle = std::unique_ptr<HANDLE, CloseHandleOf>;

struct Unmap {
    void operator()(Progress* place) const { ::UnmapViewOfFile(place); }
};
using SharedProgress = std::unique_ptr<Progress, Unmap>;

[[noreturn]] void fail(char const* call) {
    throw std::runtime_error(call + (": error " + std::to_string(::GetLastError())));
}

SharedProgress progress_at(HANDLE memory) {
    auto* const place = ::MapViewOfFile(memory, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(Progress));
    if (!place)
        fail("MapViewOfFile");
    return SharedProgress(static_cast<Progress*>(place));
}

/// None of the words ends in a backslash or has a quote in it.
std::wstring quoted(std::string const& word) {
    return L" \"" + disk::path_of(word).native() + L'"';
}

std::wstring own_program() {
    std::wstring name(32768, L'\0');
    name.resize(::GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
    return name;
}

std::string cause_of_end(HANDLE process) {
    DWORD status = 0;
    ::GetExitCodeProcess(process, &status);
    constexpr DWORD crashes = 0xC0000000; // and above
    if (status == EXIT_SUCCESS)
        return {};
    return (status < crashes ? "the process ended with exit code " : "crashed with exception ") +
           std::to_string(status);
}

} // namespace

EndOfProcess run_in_own_process(std::string const& file, std::string const&,
                                std::string const& folder) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    Handle const memory(::CreateFileMappingW(INVALID_HANDLE_VALUE, &inherited, PAGE_READWRITE, 0,
                                             sizeof(Progress), nullptr));
    if (!memory)
        fail("CreateFileMappingW");
    auto const progress = progress_at(memory.get());
    new (progress.get()) Progress;
    auto const program = own_program();
    auto const number = std::to_string(reinterpret_cast<std::uintptr_t>(memory.get()));
    auto line = L'"' + program + L'"' + quoted(std::string(own_process)) + quoted(number) +
                quoted(folder) + quoted(file);
    STARTUPINFOW streams{};
    streams.cb = sizeof streams;
    PROCESS_INFORMATION begun{};
    std::cout.flush();
    if (!::CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                          &streams, &begun))
        fail("CreateProcessW");
    Handle const process(begun.hProcess);
    Handle const thread(begun.hThread);
    std::string cause;
    if (::WaitForSingleObject(process.get(), longest_run * 1000) == WAIT_TIMEOUT) {
        ::TerminateProcess(process.get(), EXIT_FAILURE);
        ::WaitForSingleObject(process.get(), INFINITE);
        cause = "still running after " + std::to_string(longest_run) + " seconds";
    }
    return {cause.empty() ? cause_of_end(process.get()) : cause, progress->verdict, progress->line};
}

bool is_own_process(std::vector<std::string> const& words) {
    if (words.size() != 4 || words[0] != own_process)
        return false;
    auto const number = std::strtoull(words[1].c_str(), nullptr, 10);
    auto const progress =
        progress_at(reinterpret_cast<HANDLE>(static_cast<std::uintptr_t>(number)));
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX); // a crash asks nobody
    auto const text = read_scenario(words[3]);
    run_here(words[3], text.value_or(""), words[2], *progress);
    return true;
}

} // namespace scenario
