#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace quorvel {

// The quorvel-find command: `arguments` without the program's name. Writes the templates found
// to `out` and any error, as one line, to `err`; returns the exit status (0, or 2 for bad
// arguments, an unreadable file or a bad slot).
int RunFind(const std::vector<std::string> &arguments, std::ostream &out, std::ostream &err);

} // namespace quorvel
