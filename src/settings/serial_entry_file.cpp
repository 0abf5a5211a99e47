#include "settings/serial_entry_file.h"

#include <string>
#include <vector>

#include "settings/program_file.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {

SerialEntryFile ReadOrMakeSerialEntryFile(Files& files) {
  SerialEntryFile file;
  const std::string path = ProgramFilePath(files, "SeriNo.txt");
  if (!files.Exists(path)) {
    file.status = WriteProgramLines(files, path, {"False"});
    file.made = file.status.Ok();
    return file;
  }
  std::vector<std::string> lines;
  file.status = ReadProgramLines(files, path, lines);
  if (!lines.empty()) file.on = ReadBoolean(ReplaceAll(lines.front(), "#", ""));
  return file;
}

}  // namespace karvel
