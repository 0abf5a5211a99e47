// A scenario: a text of what the clerk does and what the desk and its files then hold.
//
//   # a remark
//   play SCRIPT                    the lines of another script, named from this one's folder; a shop that several begin with
//   env NAME=VALUE                 for the robot's starts from here on
//   setting SECTION/KEY=VALUE      writes a setting of the terminal; of another application as APPLICATION:SECTION/KEY=VALUE
//                                  the value {serial} is the port of the serial line, {ftp} the address of an FTP server
//                                  whose folder is "served" of the home, with the user "ali" and the password "gizli"
//   serial BYTES                   what a scanner on the serial line sends; \r and \n are the end marks. The desk hears it when the
//                                  machine delivers it: look with "soon"
//   put PATH: LINE                 adds a line to a CP1254 file of the home ("C/…", "net/…") or of the program folder ("program/…")
//   write FILE: STATEMENT          changes a database file of the data folder from outside; the first time it comes from its template
//   {"do":…}                       a request to the robot, which is started when it isn't running; must be done unless "<" tells otherwise
//   raw ANYTHING                   the same for a line that is no request
//   begin {"do":…}                 a request whose end isn't waited for: the next line comes while it runs. It must be done well
//   < {…}                          what the answer to the line above holds, at least
//   sql FILE: SELECT …             the rows of a query, one "=" line each, fields separated by "|"
//   text PATH                      the lines of such a file
//   files PATH [*.END]             the names in a folder, sorted; of one ending alone
//   printed                        the jobs that ended since it was last asked: "PRINTER, EndDoc" or "…, KillDoc", then the texts from top
//                                  to bottom; those of one height stand side by side, separated by "|", a picture as "(picture)"
//   setting? SECTION/KEY           the value of a setting
//   = LINE                         one expected line of those above; without any the result is empty
//   soon LINE                      any line above again and again until it is as told, for a minute at most
//   keep FILE                      another program keeps a database file of the data folder for itself, until "leave"
//   lock PATH                      another terminal keeps a lock file of the home, until "leave"
//   leave                          they all let go
//   server own|stop|start          under network work: a main machine of the scenario's own, at its beginning; it goes; it comes again
//   alone                          the script is of a terminal that works alone: it isn't played under network work
//   again                          starts a second copy of the terminal, which must end well by itself
//   broken FILE                    the file of the home has nothing but noise in it
//   move ARCHIVE                   closes the desk, and the shop goes to a new machine: its home and program folder begin anew, with what
//                                  karvel-restore makes of this backup of the home
//   restart                        closes the desk, which must end well; the next request starts it anew
//   ended                          the desk closed by itself after the last request, and ended well
//   end                            ends the robot's input, which must end well
//   kill                           kills the robot at once
//
// With KARVEL_TEST_ENGINE=postgres the desks work on a main machine, in a firm of the scenario's own (server_shop.h): database files are
// then the server's rows, and what else the script names in C/KarvelData lies in the folder that stands for the share.
//
// Every scenario has a home and a program folder of its own. Pictures that are named without a folder ("shot") go to the scenario's
// pictures folder, which is its own too and goes with it unless the runner is told another one.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "robot_process.h"
#include "server_shop.h"
#include "tests/support/ftp_server.h"
#include "tests/support/pseudo_terminal.h"

namespace karvel::test {

class Scenario {
 public:
  // `templates` is the folder with the empty database files, `pictures` that of the pictures; empty for one that goes with the scenario.
  Scenario(std::string robot, const std::filesystem::path& templates, const std::filesystem::path& pictures);
  ~Scenario();
  Scenario(const Scenario&) = delete;
  Scenario& operator=(const Scenario&) = delete;

  // Plays a script; throws std::runtime_error with the line's number at the first thing that isn't as told.
  void Play(const std::filesystem::path& script);

 private:
  void PlayLines(const std::filesystem::path& script);
  void Step(const std::string& line, const std::vector<std::string>& expected, const std::string& answer);
  void Soon(const std::string& line, const std::vector<std::string>& expected, const std::string& answer);
  void Request(const std::string& line, const std::string& expectedAnswer);
  // What the robot answers to a line.
  std::string Ask(const std::string& line);
  std::vector<std::string> Printed();
  void WriteSetting(const std::string& rest);
  void Close();
  void AwaitEnd();
  RobotProcess& Robot();
  void AddLine(const std::filesystem::path& file, const std::string& line) const;
  PseudoTerminal& Serial();
  testing::PythonFtp& FtpServer();
  [[nodiscard]] std::filesystem::path Place(const std::string& path) const;
  [[nodiscard]] std::filesystem::path Store(const std::string& name, bool make) const;
  void Server(const std::string& what);
  // Every terminal that the script starts works on the main machine.
  void JoinMainMachine();
  void Lock(const std::filesystem::path& file);
  void StartAgain();
  void LayTemplates() const;
  void Move(const std::string& archive);
  [[nodiscard]] std::vector<std::string> TextLines(const std::filesystem::path& file) const;

  const std::string robotProgram_;
  const std::filesystem::path templates_;
  const std::filesystem::path folder_;
  const std::filesystem::path pictures_;
  std::map<std::string, std::string> environment_;
  std::unique_ptr<PseudoTerminal> serial_;
  std::unique_ptr<testing::PythonFtp> ftp_;
  std::unique_ptr<ServerShop> server_;  // null: the terminals work on their own files
  std::unique_ptr<RobotProcess> robot_;
  std::vector<std::shared_ptr<void>> kept_;  // what others keep
  int begun_ = 0;                            // requests whose answer wasn't read yet
  std::filesystem::path scripts_;            // the folder of the script that is played
};

}  // namespace karvel::test
