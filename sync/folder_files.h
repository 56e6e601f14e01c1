// The folder of task files: listing its .ics files with their stamps, reading
// one, and writing one atomically (a temporary file renamed over it).
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velmo::sync {

// What tells a file changed without reading it: size and modification time.
struct FileStamp {
  std::uint64_t size = 0;
  std::int64_t mtime_ns = 0;
  bool operator==(const FileStamp&) const = default;
};

struct FolderFile {
  std::string name;
  FileStamp stamp;
};

// The folder's .ics files in name order. False with `error` when the folder
// is missing or cannot be read.
bool ListTaskFiles(const std::filesystem::path& folder, std::vector<FolderFile>* out,
                   std::string* error);

// Reads a whole file, up to `limit` bytes (a larger one reads as its size
// only, out left empty). False when it cannot be read.
bool ReadTaskFile(const std::filesystem::path& file, std::size_t limit, std::string* out,
                  FileStamp* stamp);

// Writes text into folder/name through a temporary file renamed over it
// (mode 0600), giving the new file's stamp. False with `error`.
bool WriteTaskFile(const std::filesystem::path& folder, const std::string& name, std::string_view text,
                   FileStamp* stamp, std::string* error);

// Removes folder/name; a file already gone counts as removed.
bool RemoveTaskFile(const std::filesystem::path& folder, const std::string& name, std::string* error);

// A hash of a file's bytes (64-bit FNV-1a).
std::uint64_t ContentHash(std::string_view bytes);

// The file name of a task: its UID with ".ics" when the UID is a plain name,
// else a name made from a hash of the UID (a UID may hold "/" or "..").
std::string TaskFileName(const std::string& uid);

}  // namespace velmo::sync
