// The tables of CliMessages, one a file. The origin of their rows is filled in by messageRows.
#pragma once

#include <span>

#include "CliMessages.h"

namespace lumnis {

std::span<const CliMessageRow> scriptMessages();
std::span<const CliMessageRow> deckMessages();
std::span<const CliMessageRow> xmlMessages();
std::span<const CliMessageRow> charsetMessages();
std::span<const CliMessageRow> dumpMessages();
std::span<const CliMessageRow> toolMessages();

}  // namespace lumnis
