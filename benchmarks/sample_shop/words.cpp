#include "sample_shop/words.h"

namespace karvel::sample {

namespace {

constexpr std::string_view kFirstNames[] = {
    "Mehmet", "Ayşe",   "Mustafa",  "Fatma", "Ahmet",    "Emine",  "Ali",    "Hatice", "Hüseyin", "Zeynep", "Hasan",  "Elif",    "İbrahim",
    "Meryem", "İsmail", "Şerife",   "Osman", "Zehra",    "Yusuf",  "Sultan", "Murat",  "Hanife",  "Ömer",   "Merve",  "Ramazan", "Havva",
    "Halil",  "Zeliha", "Süleyman", "Esra",  "Abdullah", "Fadime", "Mahmut", "Özlem",  "Recep",   "Hacer",  "Salih",  "Yasemin", "Fatih",
    "Melek",  "Kadir",  "Hülya",    "Emre",  "Sevim",    "Hakan",  "Dilek",  "Adem",   "Leyla",   "Kemal",  "Gülsüm", "Yaşar",   "Aysel",
    "Bekir",  "Songül", "Musa",     "Büşra", "Metin",    "Cemile", "Orhan",  "Kübra",  "Serkan",  "Fatoş",  "Bayram", "Arzu",    "Furkan",
    "Sibel",  "Selim",  "Nurcan",   "Cemal", "Pınar",    "Uğur",   "Gülay",  "Erkan",  "Tuğba",   "Şükrü",  "Derya",  "Burak",   "Filiz",
    "Yılmaz", "Rukiye", "Gökhan",   "Sevgi", "Ercan",    "Ebru",   "Veli",   "Nuray",  "Tuncay",  "Gamze",  "Ümit",   "Nesrin",  "İlker",
    "İrem",   "Turgut", "Ceren",    "Çetin", "Çiğdem",   "Barış",  "Banu",   "Sinan",  "Iraz",    "Oğuz",   "Ilgın",  "Tolga",   "Şule"};

constexpr std::string_view kSecondNames[] = {"Can",   "Nur",  "Ege",   "Su",    "Efe",  "Naz",   "Alp",  "Gül",  "Kaan",  "Işık",
                                             "Deniz", "Ece",  "Cem",   "Eda",   "Onur", "Selin", "Mert", "İpek", "Taha",  "Defne",
                                             "Kerem", "Esin", "Yiğit", "Sena",  "Umut", "Asya",  "Eren", "Ela",  "Berk",  "Ada",
                                             "Baran", "Buse", "Doruk", "Didem", "Rıza", "Aslı",  "Naci", "Suna", "Tarık", "Ayla"};

constexpr std::string_view kSurnames[] = {
    "Yılmaz", "Kaya",   "Demir",  "Çelik",    "Şahin",   "Yıldız",  "Yıldırım", "Öztürk", "Aydın",   "Özdemir",  "Arslan",  "Doğan",
    "Kılıç",  "Aslan",  "Çetin",  "Kara",     "Koçak",   "Kurt",    "Özkan",    "Şimşek", "Polat",   "Korkmaz",  "Çakır",   "Erdoğan",
    "Aksoy",  "Bulut",  "Yavuz",  "Taş",      "Güneş",   "Acar",    "Güler",    "Tekin",  "Şen",     "Keskin",   "Avcı",    "Turan",
    "Ünal",   "Işık",   "Köse",   "Bozkurt",  "Ateş",    "Gül",     "Coşkun",   "Sarı",   "Uçar",    "Duman",    "Özer",    "Tunç",
    "Ceylan", "Kaplan", "Çiftçi", "Şeker",    "Karaca",  "Uysal",   "Kocabaş",  "Gündüz", "Karataş", "Toprak",   "Demirci", "Bayrak",
    "Soylu",  "Akın",   "Erol",   "Güngör",   "Ekinci",  "Altun",   "Sönmez",   "Özgür",  "Ay",      "Bal",      "Çınar",   "Dinç",
    "Eker",   "Fidan",  "Gök",    "Işıklar",  "İnce",    "Kavak",   "Lale",     "Mutlu",  "Okur",    "Öner",     "Pala",    "Reis",
    "Sezer",  "Şanlı",  "Temiz",  "Usta",     "Ünlü",    "Vural",   "Yaman",    "Zengin", "Akbulut", "Balcı",    "Cengiz",  "Çağlar",
    "Dağ",    "Ertaş",  "Gezer",  "Irmak",    "Kırmızı", "Mercan",  "Narin",    "Oral",   "Özbek",   "Pekcan",   "Sağlam",  "Şirin",
    "Tatlı",  "Uzun",   "Ülgen",  "Varlı",    "Yalçın",  "Yeşil",   "Zorlu",    "Atalay", "Başaran", "Canpolat", "Çoban",   "Değirmenci",
    "Ergin",  "Göçmen", "Ilıca",  "Kandemir", "Kuzu",    "Nalbant", "Ocak",     "Özmen",  "Pamuk",   "Saraç",    "Şahbaz",  "Terzi"};

constexpr std::string_view kShopNames[] = {
    "Yıldız",    "Öz Çağlayan", "Güneş",     "Bereket",      "Yeni Hayat", "Umut",   "Kardeşler", "Özlem",     "Çınar",
    "Doğuş",     "Anadolu",     "Marmara",   "Ege",          "Toros",      "Fırat",  "Dicle",     "Gökkuşağı", "Altın Başak",
    "Şafak",     "Zümrüt",      "Papatya",   "Kardelen",     "Menekşe",    "Gül",    "Lale",      "Beyaz",     "Yeşil Vadi",
    "Mavi Köşe", "Dost",        "Can",       "Öz Kardeşler", "Huzur",      "Çağdaş", "İkizler",   "Işık",      "Ilgaz",
    "İpek Yolu", "Hilal",       "Hisar",     "Kale",         "Köprü",      "Liman",  "Martı",     "Nehir",     "Okyanus",
    "Pınarbaşı", "Rüzgâr",      "Sahil",     "Şelale",       "Tepe",       "Uğur",   "Ülkü",      "Vadi",      "Yayla",
    "Zirve",     "Çamlık",      "Bahar",     "Cennet",       "Demet",      "Efeler", "Fidanlık",  "Göl",       "Harman",
    "İstasyon",  "Kervan",      "Meydan",    "Nazar",        "Ova",        "Öncü",   "Petek",     "Selvi",     "Şölen",
    "Turkuaz",   "Uzun Çarşı",  "Üç Yıldız", "Yörük",        "Çiğdem",     "Başak",  "Aydın",     "Akça",      "Bağ",
    "Cadde",     "Çardak",      "Derya",     "Elmas",        "Gözde",      "Irmak",  "İlk Adım",  "Köşe Başı", "Öz Ticaret"};

constexpr std::string_view kShopKinds[] = {"Market",
                                           "Bakkal",
                                           "Gıda",
                                           "Gıda Ltd.Şti.",
                                           "Büfe",
                                           "Manav",
                                           "Kasap",
                                           "Fırın",
                                           "Pastane",
                                           "Lokanta",
                                           "Kırtasiye",
                                           "Hırdavat",
                                           "Kuruyemiş",
                                           "Şarküteri",
                                           "Süpermarket",
                                           "Tekel",
                                           "Kantin",
                                           "Çay Evi",
                                           "Züccaciye",
                                           "Nalburiye",
                                           "Tuhafiye",
                                           "Ticaret",
                                           "İnşaat Ltd.Şti.",
                                           "Otel",
                                           "Kafe",
                                           "Pide Salonu",
                                           "Temizlik Ltd.Şti.",
                                           "Ev Gereçleri",
                                           "Oto Yıkama",
                                           "Kuaför",
                                           "Eczane",
                                           "Çiçekçilik"};

constexpr std::string_view kWholesaleKinds[] = {"Gıda Toptan A.Ş.",  "Dağıtım Ltd.Şti.", "Pazarlama A.Ş.",    "Temizlik Ürünleri A.Ş.",
                                                "Bakliyat San.Tic.", "İçecek Dağıtım",   "Süt Ürünleri A.Ş.", "Hırdavat Toptan",
                                                "Kırtasiye Toptan",  "Un Fabrikası",     "Yağ Sanayi A.Ş.",   "Kuruyemiş Toptan"};

constexpr std::string_view kPlaces[] = {
    "Kadıköy",      "Üsküdar",    "Beşiktaş",   "Şişli",     "Fatih",      "Bakırköy",  "Maltepe",   "Kartal",    "Pendik",
    "Tuzla",        "Çankaya",    "Keçiören",   "Mamak",     "Etimesgut",  "Sincan",    "Altındağ",  "Konak",     "Bornova",
    "Karşıyaka",    "Buca",       "Çiğli",      "Bayraklı",  "Osmangazi",  "Nilüfer",   "Yıldırım",  "İnegöl",    "Gemlik",
    "Muratpaşa",    "Kepez",      "Alanya",     "Manavgat",  "Seyhan",     "Çukurova",  "Yüreğir",   "Ceyhan",    "Selçuklu",
    "Meram",        "Karatay",    "Ereğli",     "Şahinbey",  "Şehitkâmil", "Nizip",     "İzmit",     "Gebze",     "Gölcük",
    "Adapazarı",    "Serdivan",   "Odunpazarı", "Tepebaşı",  "Melikgazi",  "Kocasinan", "Talas",     "İlkadım",   "Atakum",
    "Bafra",        "Ortahisar",  "Akçaabat",   "Altınordu", "Ünye",       "Giresun",   "Rize",      "Pazar",     "Merkezefendi",
    "Pamukkale",    "Efeler",     "Kuşadası",   "Nazilli",   "Söke",       "Menteşe",   "Bodrum",    "Fethiye",   "Marmaris",
    "Yunusemre",    "Turgutlu",   "Akhisar",    "Karesi",    "Bandırma",   "Edremit",   "Ayvalık",   "Çanakkale", "Biga",
    "Süleymanpaşa", "Çorlu",      "Lüleburgaz", "Keşan",     "Uşak",       "Banaz",     "Isparta",   "Eğirdir",   "Burdur",
    "Bucak",        "Niğde",      "Bor",        "Aksaray",   "Ürgüp",      "Nevşehir",  "Kırşehir",  "Yozgat",    "Sorgun",
    "Çorum",        "Osmancık",   "Amasya",     "Merzifon",  "Tokat",      "Turhal",    "Zile",      "Sivas",     "Kangal",
    "Malatya",      "Battalgazi", "Elazığ",     "Palu",      "Bingöl",     "Genç",      "Muş",       "Varto",     "Tatvan",
    "Ahlat",        "Gevaş",      "Erciş",      "Iğdır",     "Tuzluca",    "Kars",      "Sarıkamış", "Ardahan",   "Göle",
    "Artvin",       "Hopa",       "Bayburt",    "Gümüşhane", "Kelkit"};

constexpr std::string_view kStreets[] = {"Atatürk Cad.",  "Cumhuriyet Cad.",   "İstasyon Cad.",    "Gazi Cad.",       "İnönü Cad.",
                                         "Çarşı Sok.",    "Okul Sok.",         "Cami Sok.",        "Çınar Sok.",      "Gül Sok.",
                                         "Zafer Cad.",    "Fevzi Çakmak Cad.", "Mimar Sinan Cad.", "Yunus Emre Sok.", "Barbaros Bulv.",
                                         "Sanayi Sitesi", "Hürriyet Cad.",     "Şehitler Cad.",    "Karanfil Sok.",   "Işıklar Cad.",
                                         "Değirmen Sok.", "Pazar Yeri",        "Köprübaşı Sok.",   "Ihlamur Sok."};

constexpr std::string_view kCities[] = {"İstanbul",  "Ankara", "İzmir",      "Bursa",     "Antalya", "Adana",   "Konya",   "Gaziantep",
                                        "Kocaeli",   "Mersin", "Diyarbakır", "Eskişehir", "Samsun",  "Kayseri", "Denizli", "Trabzon",
                                        "Balıkesir", "Manisa", "Sakarya",    "Muğla",     "Aydın",   "Iğdır"};

constexpr std::string_view kTaxOffices[] = {"Kadıköy",   "Çankaya",   "Konak",    "Osmangazi", "Muratpaşa", "Seyhan",     "Meram",
                                            "Şahinbey",  "İzmit",     "Uluçınar", "Gökalp",    "İlyasbey",  "Tepebaşı",   "Erciyes",
                                            "Karadeniz", "Pamukkale", "Yeditepe", "Hisar",     "Beydağı",   "Kazım Dirik"};

}  // namespace

Words FirstNames() {
  return kFirstNames;
}
Words SecondNames() {
  return kSecondNames;
}
Words Surnames() {
  return kSurnames;
}
Words ShopNames() {
  return kShopNames;
}
Words ShopKinds() {
  return kShopKinds;
}
Words WholesaleKinds() {
  return kWholesaleKinds;
}
Words Places() {
  return kPlaces;
}
Words Streets() {
  return kStreets;
}
Words Cities() {
  return kCities;
}
Words TaxOffices() {
  return kTaxOffices;
}

}  // namespace karvel::sample
