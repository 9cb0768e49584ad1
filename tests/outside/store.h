// A store on the disk as this host fills and reads it, by the public record class.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// A folder of this process that goes with the object.
class ScratchFolder {
  public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const std::filesystem::path& path() const { return m_path; }

  private:
    std::filesystem::path m_path;
};

/// A store below a folder of its own.
class Store {
  public:
    /// @param folder  is made; the store's two folders are the component's to make
    explicit Store(const std::filesystem::path& folder);

    /// The root as the component takes it, with its separator.
    std::string root() const { return m_folder.string() + "/"; }
    bool hasCatalogues() const;
    /// Writes a session that launches a program and has these part formats.
    void putSession(const std::string& name, const std::string& program,
                    const std::vector<std::string>& formats) const;
    void putFormat(const std::string& name) const;
    /// Writes a text that the component gave as an item file of the store.
    void putSessionText(const std::string& name, const std::string& xml) const;

    bool hasSession(const std::string& name) const;
    std::string sessionText(const std::string& name) const;
    /// The value of a key of a session; a missing key fails the run.
    std::string sessionValue(const std::string& name, const std::string& key) const;
    /// How many files there are in the store.
    std::size_t fileCount() const;

  private:
    std::filesystem::path sessionFile(const std::string& name) const;

    std::filesystem::path m_folder;
};

/// The name and the value of a key in an XML text that the component gave.
std::string nameIn(const std::string& xml);
std::string valueIn(const std::string& xml, const std::string& key);
/// The names in several such texts, joined by commas.
std::string namesIn(const std::vector<std::string>& texts);
