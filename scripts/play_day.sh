#!/bin/bash
# play_day.sh BIN FOLDER: plays scripts/day.jsonl through the robot on the shop in FOLDER/home. Leaves in FOLDER the screenshots, the
# robot's answers and a summary of the rows.
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/common.sh
bin=$1 folder=$2 day=$PWD/scripts/day.jsonl
export KARVEL_HOME=$folder/home KARVEL_CLOCK=2026-03-02T09:00:00

# The requests name their screenshots by file name alone: the robot works in the folder.
(cd "$folder" && timeout 300 "$bin/karvel-robot" <"$day" >answers.jsonl) || Fail "the robot ended with an error"
asked=$(grep -c . "$day") answered=$(grep -c . "$folder/answers.jsonl" || true)
[ "$asked" = "$answered" ] || Fail "$asked requests, $answered answers"
if refused=$(paste -d'\t' "$day" "$folder/answers.jsonl" | grep '"ok":false'); then
  echo "$refused" >&2
  Fail "a request was refused"
fi

data=$KARVEL_HOME/C/KarvelData
# Rows TITLE FILE SQL
Rows() {
  echo
  echo "$1"
  sqlite3 -readonly -header -column "$data/$2" "$3"
}
today="Tarih LIKE '2026-03-02%'"
{
  echo "The day that the robot played"
  Rows "Day book" Karvel.mdb "SELECT SeriNo, CariAd, StokAd, Durum, Miktar, Fiyat, Tutar, Tahsilat, Tarih, DigerId FROM Datam WHERE $today"
  Rows "Stock movements" Stok.mdb "SELECT StokHarKod, GirisCikis, Miktar, Fiyat, Tutar, DigerId FROM StokHareket WHERE $today"
  Rows "Ledger" Cari.mdb "SELECT cariharkod, Aciklama, Borc, Alacak, DigerId FROM CariHareket WHERE $today"
  Rows "Accounts of the day" Cari.mdb "SELECT CariKod, Unvan, Borc, Alacak, Bakiye, Hesap FROM CariKartlar
    WHERE CariKod IN (SELECT cariharkod FROM CariHareket WHERE $today) OR CariKod = 'zeytindalı'"
} >"$folder/summary.txt" || Fail "the summary could not be written"
cat "$folder/summary.txt"
