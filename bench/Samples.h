#pragma once

#include <string>
#include <vector>

namespace bench {

// A DNA file of `count` varied samples, CR LF lines, as a player's file would look.
std::string SampleDnaText(int count);

// Writes `text` to `path`; false when it cannot.
bool WriteFile(const std::string &path, const std::string &text);

// The median of the values (sorted in place).
double Median(std::vector<double> &values);

// One row of the benchmark table: name | ours | bare | ratio | target | verdict.
void PrintRow(const std::string &name, double ours, double bare, const std::string &unit, double target);

} // namespace bench
