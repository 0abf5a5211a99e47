// The words for the clerk.
#pragma once

#include <string>

#include "platform/status.h"

namespace karvel {

// What the clerk reads about a failure: one plain Turkish sentence, with what he can do.
std::string ClerkMessage(const Status& status);
// The same for a program that can't open: nothing was to be posted yet.
std::string OpeningMessage(const Status& status);
// The same for rows that could not be read, where nothing was to be posted.
std::string ReadingMessage(const Status& status);
// A text, and below it the lines that help whoever mends the failure: the file or folder, and where the log lies. Only the text for a
// failure that names no place.
std::string WithPlace(const std::string& text, const Status& status);

}  // namespace karvel
