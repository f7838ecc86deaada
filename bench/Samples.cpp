#include "Samples.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <vector>

namespace bench {

std::string SampleDnaText(int count) {
    std::string text;
    unsigned seed = 12345;
    const auto next = [&seed](unsigned range) {
        seed = seed * 1103515245u + 12345u;
        return (seed >> 16) % range;
    };
    for (int n = 1; n <= count; ++n) {
        for (int a = 0; a < 10; ++a)
            text += std::to_string(100 + next(900)) + ',';
        text += "Sample " + std::to_string(n) + ',' + std::to_string(1 + next(60)) + ',' +
                std::to_string(1 + next(11)) + ',' + std::to_string(next(2)) + ',' + std::to_string(next(7)) + "\r\n";
    }
    return text;
}

bool WriteFile(const std::string &path, const std::string &text) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
    return static_cast<bool>(out.flush());
}

double Median(std::vector<double> &values) {
    std::sort(values.begin(), values.end());
    const std::size_t n = values.size();
    return n == 0 ? 0.0 : (n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2);
}

void PrintRow(const std::string &name, double ours, double bare, const std::string &unit, double target) {
    const double ratio = bare > 0 ? ours / bare : 0.0;
    std::printf("%s|%.3g %s|%.3g %s|%.2fx|<= %.2fx|%s\n", name.c_str(), ours, unit.c_str(), bare, unit.c_str(), ratio,
                target, ratio <= target ? "met" : "MISSED");
    std::fflush(stdout);
}

} // namespace bench
