// A folder of its own for one test, gone with all its files at the brace.
#pragma once
#include <cerrno>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <stdlib.h>

namespace morvane {

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string pattern = ::testing::TempDir() + "morvane-XXXXXX";
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::filesystem::filesystem_error(
                "mkdtemp", pattern, std::error_code(errno, std::generic_category()));
        m_path = pattern;
    }
    ~TemporaryFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string operator/(const std::string& Name) const { return m_path + "/" + Name; }

private:
    std::string m_path;
};

} // namespace morvane
