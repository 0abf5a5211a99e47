// The stores of one desk: the engine over the data folder, and the commits of the clerk's actions.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/signal.h"
#include "platform/status.h"
#include "store/engine.h"
#include "store/value.h"

namespace karvel {

class Cursor;

class Stores {
 public:
  explicit Stores(std::unique_ptr<Engine> engine);
  ~Stores();
  Stores(const Stores&) = delete;
  Stores& operator=(const Stores&) = delete;

  [[nodiscard]] Engine& Driver() { return *engine_; }
  // Who hears of the waits for other terminals and programs; null for nobody.
  void SetWaitListener(WaitListener* listener) { engine_->SetWaitListener(listener); }

  // Opens a data folder (a path of this machine, or whatever the engine takes for one), recovering it in place.
  // Cursors that were open keep their sources, but have no rows until their next Refresh.
  Status Open(const std::string& folder);
  // An open action is undone. Its Commit or Abandon is still due; Commit then fails, and says why.
  void Close();
  [[nodiscard]] bool IsOpen() const { return engine_->IsOpen(); }

  // Whether the stores are a server's that didn't answer. Nothing is asked of it then, for the window would stand still at each try: reads
  // and actions are Unreachable at once until AskServer has found it, or an Open.
  [[nodiscard]] bool IsServerAway() const { return away_; }
  // What they answer then.
  [[nodiscard]] static Status Away();
  // Asks the server of open stores whether it is there, and waits for no connection: where one must be made, a later call finds it. The
  // grids read anew behind one that was away.
  Status AskServer();
  // Raised in the middle of whatever was asked of it.
  Signal<> serverLost;
  Signal<> serverFound;  // by AskServer, or by AskOutcome before it answers

  // Tells the grids over every table that other terminals have written since this was last called. Not inside an action.
  void ShowForeignChanges();

  // Begins an action of the clerk: all writes up to the matching Commit land together or not at all, over all files.
  // Actions nest: inner ones join the outer, and only the outermost commits. Reads inside see the action's own writes.
  // Waits in line for other terminals. Every Begin that went well is ended by one Commit or one Abandon; one that failed leaves no action
  // open, and neither may be called for it.
  Status Begin(const std::string& name);
  // Ends an action. When the outermost fails, nothing of it is in the stores, and the message says why.
  // A single write that failed inside does not undo the others. A fault of the store does (no room, no rights, a damaged or silent
  // disk), and so does an inner action that was abandoned: from there on every further write fails at once with it, and so does the
  // outermost Commit. NotOpen without an action.
  // Unknown where the disk failed so late that the action may stand, and the files can't be read to see: then nothing is begun until
  // AskOutcome knows.
  Status Commit();
  // Whether the action whose outcome is unknown stands: well when it does, why it failed when it doesn't, Unknown while that can't be read.
  // NotOpen where none is unknown.
  Status AskOutcome();
  [[nodiscard]] bool IsOutcomeUnknown() const { return !unknownAction_.empty(); }
  // Raised in the middle of whatever reads, when its file can't be read, or another program kept it too long (Busy). Not inside an action,
  // which answers with it, and not for a list that only glances (Glance), which tries again.
  Signal<const Status&> readFailed;
  // Raised by Commit and AskOutcome.
  Signal<> outcomeUnknown;      // as Commit answers Unknown
  Signal<> savedOnFailingDisk;  // an action stands, but the disk failed behind it
  // Ends an action that was not carried through. Abandoning the outermost undoes all its writes, over all files. An inner one can't be
  // undone by itself, so it takes the outer one with it: that fails at its Commit, with a message that tells which was left unfinished.
  // Does nothing without an action.
  void Abandon();
  [[nodiscard]] bool InAction() const { return !openActions_.empty(); }
  // The number of the open action, or of the last one. Each outermost action has its own; 0 before the first.
  [[nodiscard]] std::uint64_t ActionNumber() const { return actions_; }

  // Runs "DELETE FROM T Where …" in the dialect on a database file, as an action of its own unless one is open. BadText for any other
  // statement, Missing when there is no such file.
  Status Execute(const std::string& databaseName, const std::string& statement);
  // Runs a sum query ("Select Sum(x) FROM T Where …") on a database file: field 0 of its one row. Null when no row matched, and on a
  // failure (those of Execute).
  Status QueryValue(const std::string& databaseName, const std::string& query, Value& result);
  // The same sum for each text that stands in the column `by`, in one walk over the rows.
  Status QuerySumsBy(const std::string& databaseName, const std::string& query, const std::string& by, std::vector<TextSum>& sums);

  // Begins a copy of all files as they are at one moment, into an empty folder of this machine. Not inside an action.
  Status Copy(const std::string& folder, std::unique_ptr<StoresCopy>& copy);

  // Grows with every Open and Close.
  [[nodiscard]] std::uint64_t Openings() const { return openings_; }
  // Grows with every write to the table through this object or told by ShowForeignChanges, and with every action that is undone: what was
  // read under another count may be out of date.
  [[nodiscard]] std::uint64_t WriteCount(const Table& table) const;

 private:
  friend class Cursor;
  friend class Position;
  friend class Glance;
  friend class TableRows;

  // For the cursors: an engine's write, counted; inside an action it is refused when the action has failed already.
  Status Write(const Table& table, const std::function<Status(Engine&)>& write);
  // For the cursors: an engine's read. A fault of the store inside an action fails the action, for its next step would decide on what was
  // not read.
  Status Read(const std::function<Status(Engine&)>& read);
  // Names in the log, once, what stands in the number fields of these rows and is no number.
  void NoteDamage(const Table& table, const std::vector<GridRow>& rows);
  // Notes a server that didn't answer. The outcome is handed on as it is.
  Status LoseIfAway(Status status);
  void Found();
  void ReadAllAnew();
  // The answer of a server that isn't asked.
  // Fails the open action, if there is one, where the outcome of a step is a fault of the store. The outcome is handed on as it is.
  Status FailOnFault(Status status);
  // Takes the innermost action off the open ones, and gives its name.
  std::string LeaveAction();
  // Fails the open actions. The first failure is the one that is told at the outermost Commit.
  void Fail(const Status& failure);
  // Logs how the outermost action ended, and raises the signals of it.
  Status Ended(const std::string& name, const Status& outcome);
  // Tells the grids over every table that was written since the action began.
  void ShowWrittenTables();
  void ShowStale(const std::function<bool(const Cursor&)>& concerned);
  void Register(Cursor& cursor);
  void Unregister(Cursor& cursor);

  std::unique_ptr<Engine> engine_;
  std::string folder_;                    // of the files that were opened last
  std::vector<std::string> openActions_;  // their names, the outermost first
  std::string unknownAction_;             // whose outcome is not known; "" for none
  std::uint64_t actions_ = 0;
  Status failure_;              // of the open actions
  std::uint64_t undoings_ = 0;  // actions undone, and closings
  std::uint64_t openings_ = 0;
  // Whether the failure is that of a list which only glances: it tries again in a moment, and the log would drown.
  [[nodiscard]] bool Glances(const Status& status) const {
    return glancing_ && (status.Kind() == ErrorKind::Busy || status.Kind() == ErrorKind::Unreachable);
  }

  bool glancing_ = false;
  bool away_ = false;                                      // the server
  std::set<std::pair<const Table*, RowKey>> damagedRows_;  // that the log has named
  std::uint64_t busyReads_ = 0;                            // reads that another program did not let through, or that no server answered
  std::unordered_map<const Table*, std::uint64_t> writes_;
  std::vector<const Table*> writtenTables_;  // since the action began
  std::vector<Cursor*> cursors_;
};

// One action, from construction to Finish. One that is left without Finish, by whatever way, is abandoned: what was half done is undone.
class Action {
 public:
  Action(Stores& stores, const std::string& name) : stores_(stores), begun_(stores.Begin(name)), open_(begun_.Ok()) {}
  ~Action() {
    if (!open_) return;
    if (commitsWhenLeft_) {
      stores_.Commit().Ignore();
    } else {
      stores_.Abandon();
    }
  }
  Action(const Action&) = delete;
  Action& operator=(const Action&) = delete;
  // Whether the action could be begun, and if not, why.
  [[nodiscard]] const Status& Begun() const { return begun_; }
  // From here on, leaving without Finish commits instead: what was written stays written. A failure of that is only logged.
  void CommitWhenLeft() { commitsWhenLeft_ = true; }
  // Commits; a Begin that failed comes back from here.
  Status Finish() {
    if (!open_) return begun_;
    open_ = false;
    return stores_.Commit();
  }

 private:
  Stores& stores_;
  Status begun_;
  bool open_;
  bool commitsWhenLeft_ = false;
};

}  // namespace karvel
