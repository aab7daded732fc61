// An empty folder that goes with its object.
#pragma once

#include "disk/disk.h"

#include <random>
#include <stdexcept>
#include <string>

namespace tests {

class TemporaryFolder {
  public:
    /// The last part of its path begins with these letters, and has six more.
    explicit TemporaryFolder(std::string const& name) {
        auto const all = std::filesystem::canonical(std::filesystem::temp_directory_path());
        std::random_device random;
        for (int i = 0; i < 100; ++i) {
            auto letters = name;
            for (int k = 0; k < 6; ++k)
                letters += static_cast<char>('a' + random() % 26);
            path_ = all / letters;
            if (std::filesystem::create_directory(path_))
                return;
        }
        throw std::runtime_error("no folder can be made in " + disk::text_of(all));
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;

    /// Without a closing separator.
    std::string path() const { return disk::text_of(path_); }

  private:
    std::filesystem::path path_;
};

} // namespace tests
