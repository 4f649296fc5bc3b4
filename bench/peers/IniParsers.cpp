#include "peers/IniParsers.h"

#define SI_NO_CONVERSION  // keeps the bytes as UTF-8
#include <SimpleIni.h>
#include <glib.h>
#include <ini.h>

#include <QSettings>

struct SimpleIniFile::Parsed {
    CSimpleIniA ini{true};
};

std::size_t parseWithInih(const std::string& bytes) {
    std::size_t keys = 0;
    ini_parse_string(
        bytes.c_str(),
        [](void* count, const char*, const char*, const char*) {
            ++*static_cast<std::size_t*>(count);
            return 1;
        },
        &keys);
    return keys;
}

std::size_t parseWithSimpleIni(const std::string& bytes) {
    CSimpleIniA ini(true);
    ini.LoadData(bytes);
    CSimpleIniA::TNamesDepend sections;
    ini.GetAllSections(sections);
    std::size_t keys = 0;
    for (const auto& section : sections) {
        keys += static_cast<std::size_t>(ini.GetSectionSize(section.pItem));
    }
    return keys;
}

std::size_t parseWithGKeyFile(const std::string& bytes) {
    GKeyFile* file = g_key_file_new();
    g_key_file_load_from_data(file, bytes.data(), bytes.size(), G_KEY_FILE_NONE, nullptr);
    gsize sections = 0;
    g_strfreev(g_key_file_get_groups(file, &sections));
    g_key_file_free(file);
    return sections;
}

std::size_t parseWithQSettings(const std::string& path) {
    const QSettings settings(QString::fromStdString(path), QSettings::IniFormat);
    return static_cast<std::size_t>(settings.allKeys().size());
}

SimpleIniFile::SimpleIniFile(const std::string& bytes) : parsed_(std::make_unique<Parsed>()) {
    parsed_->ini.LoadData(bytes);
}

SimpleIniFile::~SimpleIniFile() = default;

std::string SimpleIniFile::compose() const {
    std::string bytes;
    parsed_->ini.Save(bytes);
    return bytes;
}
