// World: the folder that a scenario has for itself, and the files in it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace scenario {

/// Names of files are relative to the folder. Whatever cannot be done raises StepError.
class World {
  public:
    /// Makes the settings and the program folder inside an empty folder. `beside` is the folder of
    /// the scenario file.
    World(std::string folder, std::string beside);

    /// Absolute, with its closing separator.
    std::string const& folder() const { return folder_; }
    std::string path(std::string_view name) const;

    /// A text file: UTF-8 lines, each written in the code page with carriage return and line feed.
    void create(std::string_view name, std::vector<std::string> const& lines) const;
    void create_picture(std::string_view name, int width, int height) const;
    /// Copies a file that lies beside the scenario.
    void take(std::string_view name, std::string_view new_name) const;
    void remove(std::string_view name) const;

    bool exists(std::string_view name) const;
    std::string bytes(std::string_view name) const;
    /// The lines of a text file without their ends, as UTF-8.
    std::vector<std::string> lines(std::string_view name) const;

  private:
    void write(std::string_view name, std::string_view bytes) const;

    std::string folder_;
    std::string beside_;
};

} // namespace scenario
