// The faults that "check" finds, one line or one object of JSON each.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "storage/lists/ComposedFile.h"
#include "storage/stations/ListKind.h"

struct Fault {
    std::optional<ListKind> list;  // nullopt: `field` names a file
    int row = 0;                   // 1-based; 0: the whole list
    std::u16string_view field;
    std::u16string_view message;
};

class Faults {
public:
    explicit Faults(bool asJson);
    ~Faults();
    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;

    void add(const Fault& fault);
    // Moves the faults of another object, with the same form of output, behind those of this one.
    void add(Faults& others);
    bool isEmpty() const { return isEmpty_; }
    // Lines, or an array of objects; the faults are gone afterwards.
    std::string takeText();

private:
    struct Json;

    void addLine(const Fault& fault);
    void addObject(const Fault& fault);

    bool isEmpty_ = true;
    ComposedFile lines_;
    std::unique_ptr<Json> json_;  // null: lines
};
