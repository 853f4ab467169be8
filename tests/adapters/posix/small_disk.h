#pragma once

#include <fstream>
#include <string>

#include <sys/mount.h>

namespace inin {

/// A disk of 64 KiB in memory over a folder; only root can mount one.
class SmallDisk {
public:
    explicit SmallDisk(std::string folder)
        : m_folder(std::move(folder)), m_there(mount("tmpfs", m_folder.c_str(), "tmpfs", 0, "size=64k") == 0)
    {
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;
    ~SmallDisk()
    {
        if (m_there) umount2(m_folder.c_str(), MNT_DETACH);
    }
    [[nodiscard]] bool isThere() const { return m_there; }
    /// Uses up all free space.
    void fill() const
    {
        std::ofstream file(m_folder + "/ballast", std::ios::binary);
        while (file.put('x').flush()) continue;
    }

private:
    std::string m_folder;
    bool m_there;
};

} // namespace inin
