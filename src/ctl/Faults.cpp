#include "ctl/Faults.h"

#include <nlohmann/json.hpp>

#include "ctl/Lists.h"
#include "ctl/Messages.h"
#include "storage/lists/ComposedFile.h"
#include "storage/text/Numbers.h"
#include "storage/text/Utf8.h"

std::string Faults::lines() const {
    constexpr std::size_t kUsualLine = 64;
    ComposedFile file(u"", faults_.size() * kUsualLine);
    for (const Fault& fault : faults_) {
        std::u16string& text = file.text();
        if (fault.list) {
            (text += nameOf(*fault.list)) += u' ';
        }
        if (fault.row > 0) {
            (text += decimal(fault.row)) += u' ';
        }
        ((text += printable(fault.field)) += u": ") += printable(fault.message);
        text += u'\n';
        file.endRecord();
    }
    return file.takeBytes();
}

std::string Faults::json() const {
    nlohmann::ordered_json array = nlohmann::ordered_json::array();
    for (const Fault& fault : faults_) {
        nlohmann::ordered_json object;
        if (fault.list) {
            object["list"] = toUtf8(shortNameOf(*fault.list));
            object["row"] = fault.row;
        }
        object["field"] = toUtf8(fault.field);
        object["fault"] = toUtf8(fault.message);
        array.push_back(std::move(object));
    }
    return array.dump(2) + "\n";
}
