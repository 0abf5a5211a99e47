// What the desk stands on, handed to its features: the interfaces to the world outside. The front end, the robot and the tests each bring
// theirs.
#pragma once

namespace karvel {

class Clock;
class EventLoop;
class Files;
class Messages;
class SettingsStore;
class Shell;
class Keyboard;
class Window;
class Scanner;
class Connection;
class Ftp;
class Printer;
class Barcodes;
class Archives;
class Stores;

struct World {
  Clock& clock;
  EventLoop& loop;
  Files& files;
  Messages& messages;
  SettingsStore& settings;
  Shell& shell;
  Keyboard& keyboard;
  Window& window;
  Scanner& scanner;
  Connection& connection;
  Ftp& ftp;
  Printer& printer;
  Barcodes& barcodes;
  Archives& archives;
  Stores& stores;
};

}  // namespace karvel
