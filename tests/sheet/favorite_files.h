// The files of the user's favourites, and files that favourites are carried to and from.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

// Where the plug-in keeps them: the folder need not be there.
std::filesystem::path FavoriteFolder();

// The file of the favourite; names are in the code page of these sources.
std::filesystem::path FavoriteFile(const std::string& name);

// Their names without ".pfk", sorted by their bytes.
std::vector<std::string> FavoriteNames();

void ClearFavorites();

// A folder on the drive of the system, emptied when the object is made and removed when it goes.
class ExchangeFolder {
  public:
    ExchangeFolder();
    ~ExchangeFolder();
    ExchangeFolder(const ExchangeFolder&) = delete;
    ExchangeFolder& operator=(const ExchangeFolder&) = delete;

    std::filesystem::path File(const std::string& name) const;
    // The path as a word of a script.
    std::string Word(const std::string& name) const;

  private:
    std::filesystem::path m_path;
};

std::string ReadText(const std::filesystem::path& file);
void WriteText(const std::filesystem::path& file, const std::string& bytes);
