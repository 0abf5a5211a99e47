#include "settings/company_file.h"

#include <algorithm>
#include <vector>

#include "settings/program_file.h"

namespace karvel {
namespace {

const std::array<std::string, CompanyFile::kLines> kPresets = {
    "Velmora", "Adres", "Tel : 0000 000 00 00", "8", "C:\\KarvelData\\", "Mali Değeri Yoktur."};

}  // namespace

CompanyFile ReadOrMakeCompanyFile(Files& files) {
  CompanyFile company;
  const std::string path = ProgramFilePath(files, "Firmam.txt");
  if (!files.Exists(path)) {
    company.lines = kPresets;
    company.status = WriteProgramLines(files, path, {kPresets.begin(), kPresets.end()});
    company.made = company.status.Ok();
    return company;
  }
  std::vector<std::string> lines;
  company.status = ReadProgramLines(files, path, lines);
  std::copy_n(lines.begin(), std::min(lines.size(), CompanyFile::kLines), company.lines.begin());
  return company;
}

}  // namespace karvel
