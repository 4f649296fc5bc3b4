// The manifest of the built program, read from its file.
#include <windows.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/win32/Program.h"

namespace {

std::string manifest() {
    struct Unload {
        void operator()(HMODULE module) const { FreeLibrary(module); }
    };
    const std::unique_ptr<std::remove_pointer_t<HMODULE>, Unload> file(
        LoadLibraryExW(builtProgram().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE));
    // The system uses the first manifest when it creates a process.
    HRSRC found = FindResourceW(file.get(), MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(24));
    HGLOBAL loaded = found != nullptr ? LoadResource(file.get(), found) : nullptr;
    if (loaded == nullptr) {
        return {};
    }
    return {static_cast<const char*>(LockResource(loaded)), SizeofResource(file.get(), found)};
}

// The text of an element without child elements, whatever its attributes.
std::string textOfElement(const std::string& xml, const std::string& name) {
    const std::size_t end = xml.find("</" + name + ">");
    const std::size_t begin = xml.rfind('>', end);
    return end != std::string::npos && begin != std::string::npos ? xml.substr(begin + 1, end - begin - 1) : "";
}

TEST(ManifestTest, RequestsTheFeaturesThatTheProgramUses) {
    const std::string xml = manifest();
    ASSERT_NE(xml.find("<assembly "), std::string::npos);
    EXPECT_NE(xml.find("name=\"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\""), std::string::npos);
    EXPECT_NE(xml.find("<requestedExecutionLevel level=\"asInvoker\" uiAccess=\"false\"/>"), std::string::npos);
    EXPECT_EQ(textOfElement(xml, "dpiAwareness"), "PerMonitorV2");
    EXPECT_EQ(textOfElement(xml, "activeCodePage"), "UTF-8");
    EXPECT_EQ(textOfElement(xml, "longPathAware"), "true");
}

}  // namespace
