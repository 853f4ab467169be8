#pragma once

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include <sched.h>
#include <sys/mount.h>

namespace inin {

/// A file system with little room over a folder, mounted until the object is destroyed. Only the test and the programs that it
/// starts see it. Mounting needs the rights of root; without them `fault` has the reason, and the test must be skipped.
class SmallDisk {
public:
    SmallDisk(std::string folder, std::size_t kilobytes) : m_folder(std::move(folder))
    {
        // A test that is killed then leaves no mounted folder.
        const bool isSeparate =
            unshare(CLONE_NEWNS) == 0 && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
        const std::string options = "size=" + std::to_string(kilobytes) + "k";
        if (!isSeparate || mount("tmpfs", m_folder.c_str(), "tmpfs", 0, options.c_str()) != 0)
            m_fault = std::string("a small disk cannot be mounted: ") + std::strerror(errno);
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;
    ~SmallDisk()
    {
        if (m_fault.empty()) umount2(m_folder.c_str(), MNT_DETACH);
    }

    [[nodiscard]] const std::string &fault() const { return m_fault; }
    [[nodiscard]] std::string operator/(const std::string &name) const { return m_folder + "/" + name; }
    /// Takes all the room that is left.
    void fill() const
    {
        std::ofstream rest(*this / "rest", std::ios::binary | std::ios::app);
        const std::string block(1024, 'x');
        while (rest << block << std::flush) {
        }
    }
    void clear() const { std::filesystem::remove(*this / "rest"); }

private:
    std::string m_folder;
    std::string m_fault;
};

} // namespace inin
