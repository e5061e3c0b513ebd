#!/bin/sh
# Tells what the Preflight of Apache PDFBox finds in a PDF/A-1b file, or that something for it is
# missing: Debian has it in libpdfbox2-java, and in libactivation-java and libjaxb-api-java what
# newer Javas left out. Usage: preflight.sh FILE
jars=/usr/share/java
path=
command -v java >/dev/null || { echo "missing: java"; exit 0; }
for jar in preflight pdfbox2 fontbox2 xmpbox commons-logging javax.activation jaxb-api; do
  [ -f "$jars/$jar.jar" ] || { echo "missing: $jars/$jar.jar"; exit 0; }
  path="$path:$jars/$jar.jar"
done
exec java -XX:TieredStopAtLevel=1 -cp "${path#:}" org.apache.pdfbox.preflight.Validator_A1b "$1"
