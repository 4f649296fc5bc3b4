// Escapes text for HTML and SVG.
#pragma once

#include <string>
#include <string_view>

// Safe between tags and in quoted attributes.
std::u16string htmlText(std::u16string_view text);
