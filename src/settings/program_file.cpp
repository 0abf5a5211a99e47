#include "settings/program_file.h"

#include <cstddef>

#include "text/turkish.h"

namespace karvel {

std::string ProgramFilePath(const Files& files, std::string_view name) {
  const std::string folder = files.ProgramFolder();
  const std::string plain = folder + "/" + std::string(name);
  if (files.Exists(plain)) return plain;
  for (const std::string& other : files.List(folder)) {
    if (EqualText(other, name)) return folder + "/" + other;
  }
  return plain;
}

Status ReadProgramLines(const Files& files, const std::string& path, std::vector<std::string>& lines) {
  lines.clear();
  std::string bytes;
  if (Status status = files.Read(path, bytes); !status) return status;
  constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
  const std::string text = bytes.starts_with(kUtf8Mark) ? bytes.substr(kUtf8Mark.size()) : FromCp1254(bytes);
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find('\n', at);
    std::string line = text.substr(at, end == std::string::npos ? end : end - at);
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(std::move(line));
    if (end == std::string::npos) break;
    at = end + 1;
  }
  return {};
}

Status WriteProgramLines(Files& files, const std::string& path, const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return files.Write(path, ToCp1254(text));
}

}  // namespace karvel
