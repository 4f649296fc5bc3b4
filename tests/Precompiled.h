// The headers that most unit tests include. Each file still includes what it uses; scripts/lint compiles without this
// header.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "fakes/FakeCodePages.h"
#include "fakes/FakeControls.h"
#include "fakes/FakeFiles.h"
#include "fakes/FakeGridView.h"
#include "fakes/FakeMessageBox.h"
#include "fakes/FakeServices.h"
#include "fakes/Text.h"
#include "storage/stations/RowStore.h"
