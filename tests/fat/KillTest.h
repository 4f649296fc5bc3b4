#pragma once

#include <string>

// Kills that many kernels, each during a save to a disk, and reads the disk as found and after a check.
void expectWholeFilesAfterKills(const std::string& recorder, int kills);
