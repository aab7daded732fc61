// A fresh session on the scripted host, in a folder of its own that goes with it.
#pragma once

#include "app/program.h"
#include "cardfile/document_commands.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"
#include "tests/scenario/scripted_host.h"
#include "tests/temporary_folder.h"
#include "tests/unit/card_in_hand.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace kehystin {

class Folder {
  public:
    Folder() {
        std::filesystem::create_directory(disk::path_of(path_ + "windows"));
        std::filesystem::create_directory(disk::path_of(path_ + "program"));
    }

    std::string operator/(std::string_view name) const { return path_ + std::string(name); }
    std::string const& path() const { return path_; }

  private:
    tests::TemporaryFolder folder_{"kehystin-"};
    std::string path_ = folder_.path() + "/";
};

inline std::string bytes_of(std::string const& path) {
    std::ifstream file(disk::path_of(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void put_bytes(std::string const& path, std::string_view bytes) {
    std::ofstream(disk::path_of(path), std::ios::binary).write(bytes.data(), std::ssize(bytes));
}

class FreshSession : public testing::Test {
  protected:
    /// Opens a file of the folder as a user would, answering nothing.
    void open(std::string const& path) {
        session.startFile = path;
        cmd_open_Click();
    }
    void start() { program.Main(); }

    Folder folder;
    scenario::ScriptedHost host{folder.path()};
    Program program{host};
};

/// Puts a field at the end of the open card.
inline Field& add_field(Style style, int left, int top, int width, int height,
                        std::string_view caption = "") {
    return add_field(open_card, style, left, top, width, height, caption);
}

} // namespace kehystin
