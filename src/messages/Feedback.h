// How a command informs the user: message boxes and the totals line.
#pragma once

#include "messages/Totals.h"
#include "messages/mMsgBox.h"

struct Feedback {
    mMsgBox& messages;
    Totals& totals;
};
