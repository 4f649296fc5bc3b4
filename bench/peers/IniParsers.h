// INI libraries for comparison with the program's own loader and saver.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

// Each parses the bytes of a UTF-8 file as its users do and returns the number of keys.
std::size_t parseWithInih(const std::string& bytes);
std::size_t parseWithSimpleIni(const std::string& bytes);
std::size_t parseWithGKeyFile(const std::string& bytes);
// QSettings reads files only.
std::size_t parseWithQSettings(const std::string& path);

// A file that has been parsed once and can be composed again.
class SimpleIniFile {
public:
    explicit SimpleIniFile(const std::string& bytes);
    ~SimpleIniFile();
    std::string compose() const;

private:
    struct Parsed;
    std::unique_ptr<Parsed> parsed_;
};
