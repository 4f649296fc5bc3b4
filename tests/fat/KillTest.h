#pragma once

#include <string>

// Kills so many kernels, each during a save to a disk, and reads the disk as it is and after a check.
void expectWholeFilesAfterKills(const std::string& recorder, int kills);
