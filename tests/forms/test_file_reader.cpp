#include "forms/file_reader.h"
#include "tests/machine/no_threads.h"

#include <QSemaphore>
#include <QTest>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarvix::forms {

using actions::FilePart;

TEST(FileReaderTest, PartsAreReadInTheOrderInWhichTheyAreAskedFor) {
    std::vector<std::string> told;
    FileReader reader([](const FilePart& part) { return part.path + "!"; },
                      [&told](const FilePart& part, const FileReader::Bytes& bytes) {
                          told.push_back(part.path + std::to_string(part.number) + "=" + *bytes);
                      });
    reader.Ask({{"b", 0}, {"a", 3}});
    reader.Ask({{"c", 1}});
    QTRY_COMPARE(told.size(), 3U);
    EXPECT_EQ(told, (std::vector<std::string>{"b0=b!", "a3=a!", "c1=c!"}));
}

TEST(FileReaderTest, WithoutAThreadPartsAreReadAllTheSame) {
    const platform::NoThreads none;
    std::vector<std::string> told;
    FileReader reader(
        [](const FilePart& part) { return part.path + "!"; },
        [&told](const FilePart&, const FileReader::Bytes& bytes) { told.push_back(*bytes); });
    reader.Ask({{"b", 0}, {"a", 3}});
    EXPECT_TRUE(told.empty()) << "told before the call came back";
    QTRY_COMPARE(told, (std::vector<std::string>{"b!", "a!"}));
}

TEST(FileReaderTest, AReadThatDoesNotEndHoldsUpNobody) {
    static QSemaphore answers; // lives longer than the thread
    static QSemaphore begun;
    int told = 0;
    {
        FileReader reader(
            [](const FilePart&) {
                begun.release();
                answers.acquire();
                return std::string("late");
            },
            [&told](const FilePart&, const FileReader::Bytes&) { ++told; });
        reader.Ask({{"slow", 0}, {"next", 0}});
        begun.acquire();
    }
    answers.release();
    QTest::qWait(20);
    EXPECT_EQ(told, 0);
    EXPECT_EQ(begun.available(), 0) << "the next one was begun after the end";
}

TEST(FileReaderTest, WhatIsForgottenIsNotTold) {
    QSemaphore answers;
    QSemaphore begun;
    std::vector<std::string> told;
    FileReader reader(
        [&](const FilePart& part) {
            begun.release();
            answers.acquire();
            return part.path;
        },
        [&told](const FilePart&, const FileReader::Bytes& bytes) { told.push_back(*bytes); });
    reader.Ask({{"old", 0}, {"older", 0}});
    begun.acquire();
    reader.Forget();
    reader.Ask({{"new", 0}});
    answers.release(3);
    QTRY_COMPARE(told, std::vector<std::string>{"new"});
    QTest::qWait(20);
    EXPECT_EQ(told, std::vector<std::string>{"new"});
}

} // namespace tarvix::forms
