// What libmdb writes to the error output while it reads: English lines between the words for the shopkeeper. They go to the log instead.
#pragma once

namespace karvel {

// From here to its end everything that the process writes to the error output is kept back, and is then in the log: the first lines of it,
// for a damaged file may cause one for each of its pages. Where the output can't be turned, it stays as it is.
class LibraryWords {
 public:
  LibraryWords();
  ~LibraryWords();
  LibraryWords(const LibraryWords&) = delete;
  LibraryWords& operator=(const LibraryWords&) = delete;

 private:
  int output_ = -1;  // where the error output went before
  int kept_ = -1;    // a file in memory
};

}  // namespace karvel
