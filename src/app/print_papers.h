// The papers of a printer under the platform's numbers: those of sheets are the same on every machine, roll media count from 256.
#pragma once

#include <string>
#include <vector>

namespace karvel {

// All lengths in millimetres.
struct Paper {
  int number = 0;
  std::string name;   // for the clerk
  std::string media;  // how the printing system calls it
  double width = 0, height = 0;
  double left = 0, top = 0, right = 0, bottom = 0;  // what the printer can't reach
  bool roll = false;                                // ends where the document ends

  // The paper lying on its other side.
  [[nodiscard]] Paper Turned() const;
};

// Those of "Velmora PDF", its own first.
std::vector<Paper> PdfPapers();
// The first where there is none of this number: a size that the printer doesn't know is its own paper.
const Paper& PaperOfNumber(const std::vector<Paper>& papers, int number);

}  // namespace karvel
