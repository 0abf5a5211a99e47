#!/bin/bash
# Prints one of each document of a sample shop and puts their pictures into docs/images/documents.
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/common.sh
InstallPackages poppler-utils
Build release karvel-robot karvel-sample-shop karvel_program_folder
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
python3 -B scripts/sample_documents.py build/release/bin "$folder/documents" || Fail "the documents could not be printed"
mkdir -p docs/images/documents
for document in "$folder"/documents/*.pdf; do
  pdftoppm -r 80 -gray -png -singlefile "$document" "docs/images/documents/$(basename "$document" .pdf)" || Fail "no picture of $document"
done
echo "The pictures are in docs/images/documents"
