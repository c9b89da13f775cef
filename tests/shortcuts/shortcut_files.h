#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace tarvix::testing {

// A shortcut of the test data, made by others.
inline std::string ShortcutBytes(const std::string& name) {
    std::ifstream in(TARVIX_TEST_DATA "/shortcuts/" + name, std::ios::binary);
    EXPECT_TRUE(in) << name;
    return {std::istreambuf_iterator<char>(in), {}};
}

// The lines of a table of expected values, by column name.
using TableLine = std::map<std::string, std::string>;
inline std::vector<TableLine> ExpectedTable(const std::string& name) {
    const auto cells = [](const std::string& line) {
        std::vector<std::string> result;
        std::istringstream in(line + "\t");
        for (std::string cell; std::getline(in, cell, '\t');) {
            result.push_back(cell);
        }
        return result;
    };
    std::ifstream in(TARVIX_TEST_DATA "/shortcuts/" + name);
    EXPECT_TRUE(in) << name;
    std::string line;
    std::getline(in, line);
    const auto heads = cells(line);
    std::vector<TableLine> table;
    while (std::getline(in, line)) {
        const auto values = cells(line);
        TableLine entry;
        for (std::size_t i = 0; i < heads.size() && i < values.size(); ++i) {
            entry[heads[i]] = values[i];
        }
        table.push_back(entry);
    }
    return table;
}

} // namespace tarvix::testing
