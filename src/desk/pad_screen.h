// The elements of the number pad, Form3.
#pragma once

#include "desk/element_table.h"
#include "desk/floating_frame.h"

namespace karvel {

class PadScreen : public ElementTable {
 public:
  // Hidden while the pad isn't open. Its caption is the role of the number.
  Element& Form3 = Hidden("Form3", Kind::Form, "", nullptr);
  Element& Label2 = One("Label2", Kind::Label, "", &Form3);  // the field that the number is for
  Element& Text1 = One("Text1", Kind::TextBox, "", &Form3);
  Element& Label1 = One("Label1", Kind::Label, "", &Form3);
  ElementArray cmd = Many("cmd", Kind::Button, {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}, &Form3);
  ElementArray Comonlu = Many("Comonlu", Kind::Button, {"00", "000"}, &Form3);
  Element& cmdpoint = One("cmdpoint", Kind::Button, ",", &Form3);
  Element& Cmdc = One("Cmdc", Kind::Button, "C", &Form3);
  Element& Tamam = One("Tamam", Kind::Button, "Tamam", &Form3);
  Element& Command1 = One("Command1", Kind::Button, "Kapat", &Form3);
  Element& PopMik = One("PopMik", Kind::Menu, "", &Form3);
  ElementArray MikMenu = Many("MikMenu", Kind::Menu, {"Geri Al", "Miktar / Fiyat", "Kapat"}, &PopMik);
  // Where it stands inside Form1.
  FloatingFrame frame{kPadSizes};
};

}  // namespace karvel
