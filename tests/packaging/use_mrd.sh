# What somebody does who has just installed the package, from a project to its site. Run in his home.
mkdir -p "Meine Seiten/site"
cd "Meine Seiten"
mrd new haus.mdb
echo '<h3 id="ueberschrift">Unser Haus</h3><p>Am Meer.</p>' > start.html
mrd page set haus.mdb 00 --html start.html
mrd page add haus.mdb --under 00 --heading Garten > id
[ "$(cat id)" = 01 ]
mrd pictures add haus.mdb --page 01 --max 400 ../haus_vorne.jpg
mrd settings haus.mdb "Titel=Unser Haus" "Exportpfad=$(pwd | tr / '\\')\\site\\"
mrd generate haus.mdb --export site
[ -s site/index.htm ]
grep -q "Am Meer" site/index.htm
[ -n "$(find site/pix -name '*.jpg')" ]
# Nobody listens there. The library for transfers must have come along to find that out.
mrd settings haus.mdb ftpserver=127.0.0.1:9 ftpuser=anna ftppasswort=geheim
if mrd publish haus.mdb 2> told; then exit 1; fi
grep -q "nimmt keine Verbindung an" told

mrd import ../altprojekt-jet4.mdb alt.mdb
[ "$(mrd pages alt.mdb | wc -l)" -gt 1 ]

# The user's own directory, and his work in it.
own=~/.local/share/mirandel
for file in mrdleer.mdb language.mdb mrdshop.js xml/modern.xml hilfe/index.htm; do
  cmp "$own/$file" "/usr/share/mirandel/$file"
done
printf '<root name="Meins"><code>x</code></root>' > "$own/xml/meins.xml"
sed -i '1s|^|// Bestellungen an Anna\n|' "$own/mrdshop.js"
mrd layouts | grep -q Meins
