#include <QApplication>

#include "app/app.h"
#include "app/program_title.h"

int main(int argc, char** argv) {
  // The program takes no options, not even the toolkit's.
  if (argc > 1) argc = 1;
  QApplication application(argc, argv);
  karvel::App app(application, karvel::ProgramTitle(argv[0] ? argv[0] : ""));
  return app.Run();
}
