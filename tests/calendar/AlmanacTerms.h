// The terms of three years as an independent almanac has them.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "support/Folders.h"

struct AlmanacTerm {
    int index = 0;                      // 0 is the winter solstice
    std::chrono::sys_days day;          // in Beijing
    std::chrono::seconds time{};        // since Beijing's midnight: the sun passes the term's longitude
    double equationOfTime = 0.0;        // hours, at that instant
    double declination = 0.0;           // degrees
    double equationOfTimeAtNoon = 0.0;  // at 12:00 in Beijing on that day
    double declinationAtNoon = 0.0;
};

inline std::vector<std::string> FieldsOf(const std::string& line) {
    std::vector<std::string> fields;
    std::istringstream text(line);
    for (std::string field; std::getline(text, field, ',');)
        fields.push_back(field);
    return fields;
}

// By the names of the columns: the tables have several in common, in different places.
inline std::vector<AlmanacTerm> ReadAlmanacTerms(const std::string& path) {
    using namespace std::chrono;
    std::ifstream file(SourceFolder() + '/' + path);
    std::string line;
    std::getline(file, line);
    const std::vector<std::string> names = FieldsOf(line);
    std::vector<AlmanacTerm> terms;
    while (std::getline(file, line)) {
        const std::vector<std::string> fields = FieldsOf(line);
        EXPECT_EQ(fields.size(), names.size()) << line;
        const auto field = [&](const char* name) {
            return fields.at(static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin()));
        };
        int parts[6] = {};
        EXPECT_EQ(std::sscanf(field("instant_beijing").c_str(), "%d-%d-%d %d:%d:%d", &parts[0], &parts[1], &parts[2],
                              &parts[3], &parts[4], &parts[5]),
                  6)
            << line;
        AlmanacTerm term;
        term.index = (std::stoi(field("sun_longitude_deg")) + 90) / 15 % 24;
        term.day = year{parts[0]} / parts[1] / parts[2];
        term.time = hours{parts[3]} + minutes{parts[4]} + seconds{parts[5]};
        term.equationOfTime = std::stod(field("eot_hours"));
        term.declination = std::stod(field("declination_deg"));
        term.equationOfTimeAtNoon = std::stod(field("eot_hours_at_1200_beijing"));
        term.declinationAtNoon = std::stod(field("declination_deg_at_1200_beijing"));
        terms.push_back(term);
    }
    return terms;
}

inline std::vector<AlmanacTerm> AlmanacTermsOf2001() {
    std::vector<AlmanacTerm> terms = ReadAlmanacTerms("tests/calendar/data/terms-2001.csv");
    EXPECT_EQ(terms.size(), 24U);
    return terms;
}

inline std::vector<AlmanacTerm> AlmanacTermsOf2024And2025() {
    std::vector<AlmanacTerm> terms = ReadAlmanacTerms("tests/user/program/terms-2024-2025.csv");
    EXPECT_EQ(terms.size(), 48U);
    return terms;
}

inline std::vector<AlmanacTerm> AllAlmanacTerms() {
    std::vector<AlmanacTerm> terms = AlmanacTermsOf2001();
    for (const AlmanacTerm& term : AlmanacTermsOf2024And2025())
        terms.push_back(term);
    return terms;
}
