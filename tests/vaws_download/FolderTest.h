#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>

/// A folder that goes with the test.
class FolderTest : public testing::Test
{
protected:
    FolderTest()
        : folder(std::filesystem::temp_directory_path() / ("vaws-file-" + std::to_string(std::random_device()())))
    {
        std::filesystem::create_directories(folder);
    }
    ~FolderTest() override { std::filesystem::remove_all(folder); }

    std::string path(const std::string& name) const { return (folder / name).string(); }

    std::filesystem::path folder;
};
