// What "check" finds wrong, one line each.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "storage/stations/ListKind.h"

struct Fault {
    std::optional<ListKind> list;  // nullopt: of a file, which `field` names
    int row = 0;                   // 1-based; 0: of the list as a whole
    std::u16string field;
    std::u16string message;
};

class Faults {
public:
    void add(Fault fault) { faults_.push_back(std::move(fault)); }
    bool isEmpty() const { return faults_.empty(); }
    std::string lines() const;
    std::string json() const;  // an array of objects

private:
    std::vector<Fault> faults_;
};
