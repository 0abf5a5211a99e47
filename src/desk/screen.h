// Every element of the desk's window, once: its name, what it is, its caption at the start, and the panel that it lies on.
// The order is the order of Tab. The window lays them out; the features give them their meaning.
#pragma once

#include "desk/element_table.h"
#include "desk/keyboard_screen.h"
#include "desk/pad_screen.h"

namespace karvel {

struct KeyboardWish {
  Element& field;
  bool shown = false;  // a keyboard came in sight
};

class Screen : public ElementTable {
 public:
  Element& Form1 = One("Form1", Kind::Form, "", nullptr);

  // Panels. Those that the desk opens over a list begin hidden.
  Element& Frame2 = Hidden("Frame2", Kind::Panel, "", &Form1);  // the sale screen
  Element& Frame4 = Hidden("Frame4", Kind::Panel, " Seri Numarası Girişi ", &Form1);
  Element& StokGiris = Hidden("StokGiris", Kind::Panel, " Stok Kayıt ", &Form1);
  Element& CariFrm = Hidden("CariFrm", Kind::Panel, " Müşteri Kayıt ", &Form1);
  Element& StokAl = Hidden("StokAl", Kind::Panel, " Stok Miktar Girişi ", &Form1);
  Element& StokFrm = Hidden("StokFrm", Kind::Panel, "", &Form1);
  Element& TahsilatFrame = Hidden("TahsilatFrame", Kind::Panel, " Nakit Tahsilat ", &Form1);
  Element& Vadefrm = Hidden("Vadefrm", Kind::Panel, " Vade ", &Form1);
  Element& CariFrame = Hidden("CariFrame", Kind::Panel, " Cari Hesap Dökümü ", &Form1);
  Element& CiroFrm = Hidden("CiroFrm", Kind::Panel, "", &Form1);
  Element& FatFrame = Hidden("FatFrame", Kind::Panel, "", &Form1);
  Element& StkFrame = Hidden("StkFrame", Kind::Panel, "", &Form1);
  Element& Frame1 = Hidden("Frame1", Kind::Panel, "", &Form1);  // backup
  Element& Frame3 = Hidden("Frame3", Kind::Panel, "", &Form1);  // print choice
  Element& Frame5 = Hidden("Frame5", Kind::Panel, "", &Form1);  // please wait
  Element& BağlantıFrm = Hidden("BağlantıFrm", Kind::Panel, " Bağlantı Yok ", &Form1);

  // The fields of the sale and the money column.
  ElementArray Label1 = Placed("Label1", Kind::Label,
                               {{" Satış", &Form1},
                                {" Ürün", &Frame2},
                                {"1.Fiyat", &Frame2},
                                {"Ad/Kg", &Frame2},
                                {"Tutar", &Frame2},
                                {" Tahsilat", &Form1},
                                {" İskonto", &Frame2},
                                {"Bakiye", &Form1}});
  ElementArray Text1 = Placed("Text1", Kind::TextBox, {{"", &Form1}, {"", &Frame2}});
  ElementArray Text2 = Placed("Text2", Kind::TextBox, {{"0", &Frame2}, {"0", &Frame2}, {"0", &Form1}, {"0", &Frame2}});
  Element& Label2 = One("Label2", Kind::Label, "0,00", &Frame2);
  Element& Label3 = One("Label3", Kind::Label, "Nakit", &Form1);
  Element& Label4 = One("Label4", Kind::Label, "Satış", &Frame2);
  Element& Label5 = One("Label5", Kind::Label, "0,00", &Form1);
  Element& Label8 = One("Label8", Kind::Label, "", &Form1);
  Element& Label11 = Hidden("Label11", Kind::Label, "", &Frame2);
  Element& Command2 = One("Command2", Kind::Button, "Tamam", &Form1);
  Element& Command1 = One("Command1", Kind::Button, "Yazdır", &Form1);
  Element& Command4 = One("Command4", Kind::Button, "Fatura", &Form1);
  Element& Command3 = Hidden("Command3", Kind::Button, "Çıkış", &Form1);

  // Lists and their switches.
  GridElement& CariGrid = elements.AddGrid("CariGrid", &Form1);
  GridElement& StokGrid = elements.AddGrid("StokGrid", &Form1);
  GridElement& HareketGrid = elements.AddGrid("HareketGrid", &Form1);
  Element& Text5 = One("Text5", Kind::TextBox, "", &Form1);
  Element& ComboCmd = One("ComboCmd", Kind::Button, "Cari", &Form1);
  Element& GurupCombo = One("GurupCombo", Kind::Combo, "", &Form1);
  Element& StokChk = One("StokChk", Kind::CheckBox, "Stok", &Form1);
  Element& CiroChk = One("CiroChk", Kind::CheckBox, "Ciro", &Form1);
  Element& SilinenChk = One("SilinenChk", Kind::CheckBox, "Silinen", &Form1);
  Element& Text3 = Hidden("Text3", Kind::TextBox, "", &Form1);    // the numeric pad's answer
  Element& DökNoYaz = One("DökNoYaz", Kind::Button, "", &Form1);  // a trigger that no window shows: hidden, the open slip is meant

  // Serial numbers.
  Element& Text4 = One("Text4", Kind::TextBox, "", &Frame4);
  Element& List1 = One("List1", Kind::List, "", &Frame4);

  // New cards.
  ElementArray StokNew = Many("StokNew", Kind::TextBox, {"", "", "", "", "", "", "", ""}, &StokGiris);
  ElementArray StokNewCmd = Many("StokNewCmd", Kind::Button, {"Vazgeç", "Kaydet"}, &StokGiris);
  ElementArray CariNew = Many("CariNew", Kind::TextBox, {"", "", "", "", "", "", "", "", "", ""}, &CariFrm);
  Element& CariChk = One("CariChk", Kind::CheckBox, "Toptancı", &CariFrm);
  ElementArray CariNewCmd = Many("CariNewCmd", Kind::Button, {"Vazgeç", "Kaydet"}, &CariFrm);

  // Stock receipt.
  ElementArray Text6 = Many("Text6", Kind::TextBox, {"", "0", "0", "0", "0", ""}, &StokAl);
  ElementArray Label12 = Many("Label12", Kind::Label, {" Stok Adı", " Alış Fiyatı", " Satış Fiyatı", " Miktar", " Kdv", "0,00"}, &StokAl);
  ElementArray StokAlCmd = Many("StokAlCmd", Kind::Button, {"Kapat", "Kaydet"}, &StokAl);

  // Stock list.
  Element& GrpCombo = One("GrpCombo", Kind::Combo, "", &StokFrm);
  Element& Stoktxt = One("Stoktxt", Kind::TextBox, "", &StokFrm);
  Element& StokCek = One("StokCek", Kind::CheckBox, "Mevcutlar", &StokFrm);

  // Collection.
  ElementArray Command8 = Many("Command8", Kind::Button, {"Nakit", "Kredi Kartı"}, &TahsilatFrame);
  ElementArray Command7 = Many("Command7", Kind::Button, {"Vazgeç", "Tamam"}, &TahsilatFrame);
  Element& Command9 = One("Command9", Kind::Button, "Yazıcı Var", &TahsilatFrame);
  Element& NakitCmd = One("NakitCmd", Kind::Button, "Cari Hesap", &TahsilatFrame);

  // Overdue notice.
  Element& Label15 = One("Label15", Kind::Label, "", &Vadefrm);

  // Statement and print choice.
  GridElement& CariDBGrid = elements.AddGrid("CariDBGrid", &CariFrame);
  Element& CariCmd = One("CariCmd", Kind::Button, "Tümünü Yazdır", &CariFrame);
  Element& CariKapat = One("CariKapat", Kind::Button, "Kapat", &CariFrame);
  Element& DTPicker1 = One("DTPicker1", Kind::DatePicker, "", &Frame3);
  ElementArray Command5 = Many("Command5", Kind::Button, {"Kapat", "Günlük Yazdır ", "Tümünü Yazdır"}, &Frame3);
  Element& CariHesCmd = One("CariHesCmd", Kind::Button, "Cari Hesap Dökümü", &Frame3);
  Element& VzgCmd = One("VzgCmd", Kind::Button, "Vazgeç", &Frame3);
  Element& TahsilatCmd = One("TahsilatCmd", Kind::Button, "Tahsilat Fişi", &Frame3);
  Element& YazıcıCmd = One("YazıcıCmd", Kind::Button, "Yazıcı", &Frame3);  // names the printer in use, and lets choose another

  // Day figures.
  ElementArray Label9 = Many("Label9", Kind::Label, {"0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0"}, &CiroFrm);
  ElementArray DTPicker2 = Many("DTPicker2", Kind::DatePicker, {"", ""}, &CiroFrm);
  Element& CiroYazCmd = One("CiroYazCmd", Kind::Button, "CiroYazdır", &CiroFrm);
  Element& ZRaporu = One("ZRaporu", Kind::Button, "Z-Raporu Yaz", &CiroFrm);

  // Invoice.
  ElementArray Fat = Many("Fat", Kind::TextBox, {"", "", "", "", "", "", "", "", "", ""}, &FatFrame);
  Element& FatDTPicker = One("FatDTPicker", Kind::DatePicker, "", &FatFrame);
  Element& FatDüzChk = One("FatDüzChk", Kind::CheckBox, "Düz Fatura", &FatFrame);
  GridElement& FatGrid = elements.AddGrid("FatGrid", &FatFrame);
  ElementArray FatCmd = Many("FatCmd", Kind::Button, {"Kapat", "Yazdır"}, &FatFrame);
  Element& FatPopCmd = One("FatPopCmd", Kind::Button, "Seçenekler", &FatFrame);  // opens FatPop for a finger
  Element& List2 = One("List2", Kind::List, "", &StkFrame);
  // The boxes by which StkFrame is moved and sized (desk/stock_frame.h), and where it stands.
  ElementArray handle = Many("handle", Kind::Picture, {"", "", "", "", "", "", "", "", ""}, &Form1);
  FloatingFrame stkPlace{kStockFrameSizes};

  // Backup, please wait, no connection.
  Element& Drive1 = One("Drive1", Kind::Combo, "", &Frame1);
  ElementArray Command10 = Many("Command10", Kind::Button, {"Vazgeç", "Yedekle"}, &Frame1);
  Element& Label16 = One("Label16", Kind::Label, "Bilgiler Düzenleniyor, Lütfen Bekleyiniz.....", &Frame5);
  Element& DurCmd = Hidden("DurCmd", Kind::Button, "Durdur", &Frame5);  // stops a print that takes long

  // Menus. A menu without a panel opens as a pop-up under its name.
  Element& PopMenu = One("PopMenu", Kind::Menu, "", &Form1);
  Element& CarSil = One("CarSil", Kind::Menu, "Cari Kartı Sil", &PopMenu);
  Element& Popyuzde = One("Popyuzde", Kind::Menu, "", &Form1);
  Element& Yuzde = One("Yuzde", Kind::Menu, "Min.Satış Yüzdesi", &Popyuzde);
  Element& FatPop = One("FatPop", Kind::Menu, "", &Form1);
  ElementArray MnPop = Many("MnPop", Kind::Menu,
                            {"Tarih", "Saat", "Birim", "Bakiye", "Kdv", "Kalem Kdv", "Yanlız", "Toplam", "Ara Toplam", "Genel Toplam",
                             "Yazıcı Yok", "Fatura Satır Sayısı", "Yazı Fontu", "Kdv Dahil"},
                            &FatPop);
  Element& PopBrk = One("PopBrk", Kind::Menu, "", &Form1);
  Element& BarkodOku = One("BarkodOku", Kind::Menu, "Barkod Oku", &PopBrk);
  Element& SecimTamam = One("SecimTamam", Kind::Menu, "Seçim Tamam", &PopBrk);
  Element& Yedek = One("Yedek", Kind::Menu, "Yedekle", &PopBrk);
  Element& FontDialog = One("FontDialog", Kind::Menu, "Ekran Yazısı", &PopBrk);
  Element& OnLine = One("OnLine", Kind::Menu, "Network Çalışma", &PopBrk);
  Element& FtpVar = One("FtpVar", Kind::Menu, "Ftp Çalışma", &PopBrk);
  Element& AySil = One("AySil", Kind::Menu, "30 Gün Öncesini Sil", &PopBrk);
  Element& Stoklu = One("Stoklu", Kind::Menu, "Stoklu Satış", &PopBrk);
  Element& FiyatSabit = One("FiyatSabit", Kind::Menu, "Fiyat Sabit", &PopBrk);
  Element& Fiyat2 = One("Fiyat2", Kind::Menu, "Gurup 2.Fiyat", &PopBrk);
  Element& A5 = One("A5", Kind::Menu, "A5 Size", &PopBrk);
  Element& Efatura80cm = One("Efatura80cm", Kind::Menu, "E-Fatura 80 mm", &PopBrk);
  Element& Logo = One("Logo", Kind::Menu, "Logo", &PopBrk);
  ElementArray Logom = Many("Logom", Kind::Menu, {"Fatura Logo", "Firma Logo"}, &Logo);
  Element& Silme = One("Silme", Kind::Menu, "Silme Açık", &PopBrk);
  Element& AraVer = One("AraVer", Kind::Menu, "Stok İsmi Ayrı Satır", &PopBrk);
  Element& EkranKlv = One("EkranKlv", Kind::Menu, "Ekran Klavyesi", &PopBrk);  // when the on-screen keyboard opens
  ElementArray Klv = Many("Klv", Kind::Menu, {"Otomatik", "Her zaman", "Hiç"}, &EkranKlv);
  Element& PencereSabit = One("PencereSabit", Kind::Menu, "Pencere Sabit", &PopBrk);
  Element& PopSip = One("PopSip", Kind::Menu, "", &Form1);
  ElementArray CiroYaz = Many("CiroYaz", Kind::Menu, {"Ciro Yazdır", "Sipariş Yazdır"}, &PopSip);

  ElementArray Picture2 = Many("Picture2", Kind::Picture, {"", ""}, &Form1);

  Element& Durum = One("Durum", Kind::Label, "", &Form1);  // the quiet line at the bottom (desk/quiet_line.h)

  // The small windows that float over this one, each with elements of its own.
  KeyboardScreen Form2;
  PadScreen Form3;

  // A busy pointer over the whole window.
  void SetBusy(bool busy) { SetPointer(busy); }
  [[nodiscard]] bool Busy() const { return busy_; }
  Signal<bool> pointerChanged;
  // Asks the window to open a pop-up menu (PopMenu, PopBrk, …) where the finger is.
  Signal<Element&> popUp;
  // Asks for the on-screen keyboard over a text box, and says that it is no longer wanted. Whoever shows one notes it in the wish
  // (desk/on_screen_keyboard.h).
  Signal<KeyboardWish&> keyboardWanted;
  Signal<> keyboardDone;

 private:
  void SetPointer(bool busy);
  bool busy_ = false;
};

}  // namespace karvel
