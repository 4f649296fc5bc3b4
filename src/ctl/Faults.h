// The faults that "check" finds, one line each.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "storage/stations/ListKind.h"

struct Fault {
    std::optional<ListKind> list;  // nullopt: `field` names a file
    int row = 0;                   // 1-based; 0: the whole list
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
