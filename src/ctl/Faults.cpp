#include "ctl/Faults.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "ctl/Lists.h"
#include "ctl/Messages.h"
#include "storage/text/Numbers.h"
#include "storage/text/Utf8.h"

struct Faults::Json {
    nlohmann::ordered_json array = nlohmann::ordered_json::array();
};

Faults::Faults(bool asJson) : lines_(u"", 0), json_(asJson ? std::make_unique<Json>() : nullptr) {}

Faults::~Faults() = default;

void Faults::add(const Fault& fault) {
    isEmpty_ = false;
    if (json_) {
        addObject(fault);
    } else {
        addLine(fault);
    }
}

void Faults::add(Faults& others) {
    isEmpty_ = isEmpty_ && others.isEmpty_;
    if (json_) {
        for (auto& object : others.json_->array) {
            json_->array.push_back(std::move(object));
        }
    } else {
        const std::size_t units = others.lines_.units();
        lines_.append(others.lines_.takeBytes(), units);
    }
}

void Faults::addLine(const Fault& fault) {
    std::u16string& text = lines_.text();
    if (fault.list) {
        (text += nameOf(*fault.list)) += u' ';
    }
    if (fault.row > 0) {
        appendDecimal(text, fault.row);
        text += u' ';
    }
    appendPrintable(text, fault.field);
    text += u": ";
    appendPrintable(text, fault.message);
    text += u'\n';
    lines_.endRecord();
}

void Faults::addObject(const Fault& fault) {
    nlohmann::ordered_json object;
    if (fault.list) {
        object["list"] = toUtf8(shortNameOf(*fault.list));
        object["row"] = fault.row;
    }
    object["field"] = toUtf8(fault.field);
    object["fault"] = toUtf8(fault.message);
    json_->array.push_back(std::move(object));
}

std::string Faults::takeText() { return json_ ? json_->array.dump(2) + "\n" : lines_.takeBytes(); }
