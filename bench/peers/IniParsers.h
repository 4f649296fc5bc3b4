// The INI libraries that the program's own loader and saver are held against.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

// Each parses the bytes of a UTF-8 file as its users do and returns the number of keys it has found.
std::size_t parseWithInih(const std::string& bytes);
std::size_t parseWithSimpleIni(const std::string& bytes);
std::size_t parseWithGKeyFile(const std::string& bytes);
// QSettings reads files only.
std::size_t parseWithQSettings(const std::string& path);

// A file parsed once, to be composed again.
class SimpleIniFile {
public:
    explicit SimpleIniFile(const std::string& bytes);
    ~SimpleIniFile();
    std::string compose() const;

private:
    struct Parsed;
    std::unique_ptr<Parsed> parsed_;
};
