<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>ActiveHeader</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close </source>
        <translation>Schließen </translation>
    </message>
</context>
<context>
    <name>Analysis</name>
    <message>
        <source>Cannot retrieve Zentrel cache directory</source>
        <translation>Der Cacheordner von Zentrel ist nicht zu ermitteln</translation>
    </message>
    <message>
        <source>Cannot open %1</source>
        <translation>%1 kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Cannot decompress %1</source>
        <translation>%1 kann nicht dekomprimiert werden</translation>
    </message>
    <message>
        <source>Cannot compress %1</source>
        <translation>%1 kann nicht komprimiert werden</translation>
    </message>
    <message>
        <source>Cannot access %1</source>
        <translation>Auf %1 kann nicht zugegriffen werden</translation>
    </message>
    <message>
        <source>&lt; 10 ms</source>
        <translation>&lt; 10 ms</translation>
    </message>
    <message>
        <source>Cannot read a file</source>
        <translation>Eine Datei kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Cannot open the file</source>
        <translation>Die Datei kann nicht geöffnet werden</translation>
    </message>
</context>
<context>
    <name>AutoRefresh</name>
    <message>
        <source>Every &amp;1 second</source>
        <translation>Jede &amp;Sekunde</translation>
    </message>
    <message>
        <source>Every &amp;5 seconds</source>
        <translation>Alle &amp;5 Sekunden</translation>
    </message>
    <message>
        <source>Every 1&amp;0 seconds</source>
        <translation>Alle 1&amp;0 Sekunden</translation>
    </message>
    <message>
        <source>&amp;Disable Auto-refresh</source>
        <translation>Automatische Aktualisierung &amp;aus</translation>
    </message>
</context>
<context>
    <name>CacheRemoval</name>
    <message>
        <source>This will delete all cache for this directory and all contained subdirectories<byte value="xd"/>
Proceed?</source>
        <translation>Der gesamte Cache dieses Ordners und all seiner Unterordner wird gelöscht.<byte value="xd"/>
Fortfahren?</translation>
    </message>
    <message>
        <source>Cannot delete cache entry</source>
        <translation>Der Cacheeintrag kann nicht gelöscht werden</translation>
    </message>
    <message>
        <source>This will delete all Zentrel cache on this server<byte value="xd"/>
Proceed ?</source>
        <translation>Der gesamte Zentrel-Cache auf diesem Server wird gelöscht.<byte value="xd"/>
Fortfahren?</translation>
    </message>
    <message>
        <source>Cannot delete Zentrel cache</source>
        <translation>Der Zentrel-Cache kann nicht gelöscht werden</translation>
    </message>
    <message>
        <source>Cannot reset Zentrel performance data</source>
        <translation>Die Leistungsdaten von Zentrel können nicht zurückgesetzt werden</translation>
    </message>
</context>
<context>
    <name>CacheReport</name>
    <message>
        <source>Uncompressed</source>
        <translation>Unkomprimiert</translation>
    </message>
    <message>
        <source>Compressed</source>
        <translation>Komprimiert</translation>
    </message>
    <message>
        <source>Sizes of the file types</source>
        <translation>Größen der Dateitypen</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>Server</translation>
    </message>
    <message>
        <source>Scanned</source>
        <translation>Eingelesen</translation>
    </message>
    <message>
        <source>Zentrel Cache Report</source>
        <translation>Zentrel-Cachebericht</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>Server:</translation>
    </message>
    <message>
        <source>Scanned:</source>
        <translation>Eingelesen:</translation>
    </message>
    <message>
        <source>Cached URLs</source>
        <translation>URLs im Cache</translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation>Rate</translation>
    </message>
    <message>
        <source>Bandwidth saved</source>
        <translation>Gesparte Bandbreite</translation>
    </message>
    <message>
        <source>Sent compressed</source>
        <translation>Komprimiert gesendet</translation>
    </message>
    <message>
        <source>Would be sent uncompressed</source>
        <translation>Unkomprimiert wären es</translation>
    </message>
    <message>
        <source>Hits</source>
        <translation>Treffer</translation>
    </message>
    <message>
        <source>Hits answered from the cache</source>
        <translation>Treffer aus dem Cache</translation>
    </message>
    <message>
        <source>Replaced versions</source>
        <translation>Ersetzte Fassungen</translation>
    </message>
    <message>
        <source>CPU time</source>
        <translation>CPU-Zeit</translation>
    </message>
    <message>
        <source>There are none.</source>
        <translation>Es gibt keine.</translation>
    </message>
    <message>
        <source>Shown: %1 of %2.</source>
        <translation>Gezeigt: %1 von %2.</translation>
    </message>
    <message>
        <source>URL</source>
        <translation>URL</translation>
    </message>
    <message>
        <source>Query</source>
        <translation>Abfrage</translation>
    </message>
    <message>
        <source>Site</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Expired</source>
        <translation>Abgelaufen</translation>
    </message>
    <message>
        <source>Largest savers</source>
        <translation>Größte Ersparnis</translation>
    </message>
    <message>
        <source>Cached URLs that save bandwidth, the most first.</source>
        <translation>URLs im Cache, die Bandbreite sparen, die sparsamsten zuerst.</translation>
    </message>
    <message>
        <source>Never hit</source>
        <translation>Nie getroffen</translation>
    </message>
    <message>
        <source>Cached URLs that nobody asked for again, the largest first.</source>
        <translation>URLs im Cache, nach denen niemand mehr fragte, die größten zuerst.</translation>
    </message>
    <message>
        <source>Poor ratios</source>
        <translation>Schlechte Raten</translation>
    </message>
    <message>
        <source>Cached URLs compressed to more than 95% of their size, the worst first.</source>
        <translation>URLs im Cache, die nur auf mehr als 95% ihrer Größe komprimiert wurden, die schlechtesten zuerst.</translation>
    </message>
    <message>
        <source>Cached URLs that had expired when the cache was scanned, the oldest first.</source>
        <translation>URLs im Cache, die beim Einlesen abgelaufen waren, die ältesten zuerst.</translation>
    </message>
    <message>
        <source>Compression levels</source>
        <translation>Kompressionsstufen</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Stufe</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Andere</translation>
    </message>
    <message>
        <source>Totals</source>
        <translation>Summen</translation>
    </message>
    <message>
        <source>Sites</source>
        <translation>Websites</translation>
    </message>
    <message>
        <source>File types</source>
        <translation>Dateitypen</translation>
    </message>
    <message>
        <source>File type</source>
        <translation>Dateityp</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(keine)</translation>
    </message>
    <message>
        <source>Others (%1)</source>
        <translation>Andere (%1)</translation>
    </message>
</context>
<context>
    <name>CacheScan</name>
    <message>
        <source>Loading Info: </source>
        <translation>Einlesen: </translation>
    </message>
    <message>
        <source>Zentrel is not started on this server or it is an older version</source>
        <translation>Zentrel läuft auf diesem Server nicht oder hat eine ältere Version</translation>
    </message>
    <message>
        <source>Found: %1 Files</source>
        <translation>Gefunden: %1 Dateien</translation>
    </message>
</context>
<context>
    <name>CacheTree</name>
    <message>
        <source>Internet Information Services</source>
        <translation>Internetinformationsdienste</translation>
    </message>
    <message>
        <source>%1 (%2) Remains</source>
        <translation>%1 (%2 verbleiben)</translation>
    </message>
    <message>
        <source>%1 (%2 entries)</source>
        <translation>%1 (%2 Einträge)</translation>
    </message>
    <message>
        <source>%1 (nothing cached)</source>
        <translation>%1 (nichts im Cache)</translation>
    </message>
</context>
<context>
    <name>ConnectRoutine</name>
    <message>
        <source>Connecting to %1...</source>
        <translation>Verbindung mit %1 wird hergestellt...</translation>
    </message>
    <message>
        <source>Cannot connect to %1</source>
        <translation>Mit %1 kann keine Verbindung hergestellt werden</translation>
    </message>
    <message>
        <source>Zentrel is not started on this server or it is an older version</source>
        <translation>Zentrel läuft auf diesem Server nicht oder hat eine ältere Version</translation>
    </message>
    <message>
        <source>Cannot connect to Zentrel RPC server on %1</source>
        <translation>Mit dem RPC-Server von Zentrel auf %1 kann keine Verbindung hergestellt werden</translation>
    </message>
    <message>
        <source>Cannot access Remote Registry service on %1</source>
        <translation>Auf den Remoteregistrierungsdienst von %1 kann nicht zugegriffen werden</translation>
    </message>
    <message>
        <source>The Remore Registry service is not started on %1<byte value="xd"/>
This service is necessary to retrieve Zentrel Performance statistics<byte value="xd"/>
Start the service?</source>
        <translation>Der Remoteregistrierungsdienst läuft auf %1 nicht.<byte value="xd"/>
Er wird gebraucht, um die Leistungsstatistik von Zentrel zu lesen.<byte value="xd"/>
Den Dienst starten?</translation>
    </message>
    <message>
        <source>Cannot start Remote Registry service on %1</source>
        <translation>Der Remoteregistrierungsdienst auf %1 kann nicht gestartet werden</translation>
    </message>
    <message>
        <source>Cannot open performance collection library
Error 0x%1 - %2</source>
        <translation>Die Bibliothek der Leistungsdaten kann nicht geöffnet werden
Fehler 0x%1 - %2</translation>
    </message>
    <message>
        <source>Connected to %1</source>
        <translation>Verbunden mit %1</translation>
    </message>
    <message>
        <source>%1 web site</source>
        <translation>%1 Website</translation>
    </message>
    <message>
        <source>%1 web sites</source>
        <translation>%1 Websites</translation>
    </message>
    <message>
        <source>%1 - Local - %2</source>
        <translation>%1 - lokal - %2</translation>
    </message>
    <message>
        <source>Access denied</source>
        <translation>Zugriff verweigert</translation>
    </message>
    <message>
        <source>Not connected - Error</source>
        <translation>Nicht verbunden - Fehler</translation>
    </message>
</context>
<context>
    <name>CounterChart</name>
    <message>
        <source>no value</source>
        <translation>kein Wert</translation>
    </message>
    <message>
        <source>No values yet</source>
        <translation>Noch keine Werte</translation>
    </message>
    <message>
        <source>Min %1   Avg %2   Max %3</source>
        <translation>Min. %1   Mittel %2   Max. %3</translation>
    </message>
    <message>
        <source>Min %1   Max %2</source>
        <translation>Min. %1   Max. %2</translation>
    </message>
</context>
<context>
    <name>CounterFeed</name>
    <message>
        <source>There is no connection to a server.</source>
        <translation>Es besteht keine Verbindung zu einem Server.</translation>
    </message>
    <message>
        <source>Cannot open performance collection library</source>
        <translation>Die Bibliothek der Leistungsdaten kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>The performance counters cannot be read.</source>
        <translation>Die Leistungszähler können nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Cannot collect performance data</source>
        <translation>Die Leistungsdaten können nicht erhoben werden</translation>
    </message>
</context>
<context>
    <name>Counters</name>
    <message>
        <source>% Compression Processor Time</source>
        <translation>% Prozessorzeit für Kompression</translation>
    </message>
    <message>
        <source>The share of one processor&apos;s time that went into compressing responses since the counters were last reset. A high value means that compression competes with the rest of the server.</source>
        <translation>Der Anteil der Zeit eines Prozessors, der seit dem letzten Zurücksetzen der Zähler in das Komprimieren von Antworten ging. Ein hoher Wert heißt, dass die Kompression mit dem übrigen Server um Rechenzeit konkurriert.</translation>
    </message>
    <message>
        <source>Response Bytes Uncompressed</source>
        <translation>Unkomprimierte Antwortbytes</translation>
    </message>
    <message>
        <source>The bytes of all response bodies that were sent as they are, without compression.</source>
        <translation>Die Bytes aller Antwortkörper, die unverändert gesendet wurden, also ohne Kompression.</translation>
    </message>
    <message>
        <source>Response Bytes Compressed</source>
        <translation>Komprimierte Antwortbytes</translation>
    </message>
    <message>
        <source>The bytes of all response bodies that were sent compressed, as they went over the network.</source>
        <translation>Die Bytes aller komprimiert gesendeten Antwortkörper, wie sie über das Netz gingen.</translation>
    </message>
    <message>
        <source>Response Bytes Uncompressed Equivalent</source>
        <translation>Antwortbytes, unkomprimiertes Äquivalent</translation>
    </message>
    <message>
        <source>The bytes that the compressed responses would have needed without compression. Compare them with Response Bytes Compressed.</source>
        <translation>Die Bytes, die die komprimierten Antworten ohne Kompression gebraucht hätten. Vergleichen Sie sie mit den komprimierten Antwortbytes.</translation>
    </message>
    <message>
        <source>Response Bytes Total Equivalent</source>
        <translation>Antwortbytes, Äquivalent gesamt</translation>
    </message>
    <message>
        <source>The bytes that all responses together would have needed without any compression.</source>
        <translation>Die Bytes, die alle Antworten zusammen ganz ohne Kompression gebraucht hätten.</translation>
    </message>
    <message>
        <source>Response Bytes Total</source>
        <translation>Antwortbytes gesamt</translation>
    </message>
    <message>
        <source>The bytes of all response bodies that were sent, compressed or not.</source>
        <translation>Die Bytes aller gesendeten Antwortkörper, komprimiert oder nicht.</translation>
    </message>
    <message>
        <source>Bandwidth Savings</source>
        <translation>Bandbreitenersparnis</translation>
    </message>
    <message>
        <source>The bytes that compression kept off the network: what the compressed responses would have needed, less what they did need. It is negative when compression made them larger.</source>
        <translation>Die Bytes, die die Kompression dem Netz erspart hat: was die komprimierten Antworten gebraucht hätten, weniger dem, was sie gebraucht haben. Der Wert ist negativ, wenn die Kompression sie vergrößert hat.</translation>
    </message>
    <message>
        <source>Average Compression Ratio</source>
        <translation>Mittlere Kompressionsrate</translation>
    </message>
    <message>
        <source>The size of the compressed responses as a percentage of their original size. The lower it is, the better the content compresses.</source>
        <translation>Die Größe der komprimierten Antworten in Prozent ihrer ursprünglichen Größe. Je kleiner der Wert, desto besser lassen sich die Inhalte komprimieren.</translation>
    </message>
    <message>
        <source>Average Reduction</source>
        <translation>Mittlere Verkleinerung</translation>
    </message>
    <message>
        <source>By how many percent compression made the compressed responses smaller than their originals. The higher it is, the better.</source>
        <translation>Um wie viel Prozent die Kompression die komprimierten Antworten gegenüber den Originalen verkleinert hat. Je höher der Wert, desto besser.</translation>
    </message>
    <message>
        <source>Responses Sent Uncompressed</source>
        <translation>Unkomprimiert gesendete Antworten</translation>
    </message>
    <message>
        <source>The number of responses that were sent as they are, because the client or the kind of file does not allow compression.</source>
        <translation>Die Zahl der Antworten, die unverändert gesendet wurden, weil der Client oder die Art der Datei keine Kompression zulässt.</translation>
    </message>
    <message>
        <source>Responses Sent Compressed</source>
        <translation>Komprimiert gesendete Antworten</translation>
    </message>
    <message>
        <source>The number of responses that were sent compressed, from the cache or freshly made.</source>
        <translation>Die Zahl der komprimiert gesendeten Antworten, aus dem Cache oder frisch erzeugt.</translation>
    </message>
    <message>
        <source>% Responses Sent Compressed</source>
        <translation>% komprimiert gesendete Antworten</translation>
    </message>
    <message>
        <source>The percentage of all responses that were sent compressed.</source>
        <translation>Der Anteil aller Antworten, die komprimiert gesendet wurden, in Prozent.</translation>
    </message>
    <message>
        <source>Responses Cacheable</source>
        <translation>Cachefähige Antworten</translation>
    </message>
    <message>
        <source>The number of responses for which a compressed version may be kept in the cache. Each of them is either a cache hit or a cache miss.</source>
        <translation>Die Zahl der Antworten, von denen eine komprimierte Fassung im Cache bleiben darf. Jede von ihnen ist entweder ein Cachetreffer oder ein Cachefehltreffer.</translation>
    </message>
    <message>
        <source>% Responses Cacheable</source>
        <translation>% cachefähige Antworten</translation>
    </message>
    <message>
        <source>The percentage of all responses for which a compressed version may be kept in the cache.</source>
        <translation>Der Anteil aller Antworten, von denen eine komprimierte Fassung im Cache bleiben darf, in Prozent.</translation>
    </message>
    <message>
        <source>% Responses From Cache</source>
        <translation>% Antworten aus dem Cache</translation>
    </message>
    <message>
        <source>The percentage of all responses, cacheable or not, that were answered with a compressed version out of the cache.</source>
        <translation>Der Anteil aller Antworten, cachefähig oder nicht, die mit einer komprimierten Fassung aus dem Cache beantwortet wurden, in Prozent.</translation>
    </message>
    <message>
        <source>Responses Sent Total</source>
        <translation>Gesendete Antworten gesamt</translation>
    </message>
    <message>
        <source>The number of all responses that were sent, compressed or not.</source>
        <translation>Die Zahl aller gesendeten Antworten, komprimiert oder nicht.</translation>
    </message>
    <message>
        <source>Cache Misses</source>
        <translation>Cachefehltreffer</translation>
    </message>
    <message>
        <source>The number of cacheable responses that were not in the cache or out of date there. Many of them are usual after a clean-up or a change of the site.</source>
        <translation>Die Zahl der cachefähigen Antworten, die nicht im Cache lagen oder dort veraltet waren. Nach einer Bereinigung oder einer Änderung der Website sind viele davon üblich.</translation>
    </message>
    <message>
        <source>Cache Hits</source>
        <translation>Cachetreffer</translation>
    </message>
    <message>
        <source>The number of responses that were answered out of the cache, without any work for the compressor.</source>
        <translation>Die Zahl der Antworten aus dem Cache, die dem Kompressor keine Arbeit machten.</translation>
    </message>
    <message>
        <source>% Cache Hits</source>
        <translation>% Cachetreffer</translation>
    </message>
    <message>
        <source>The percentage of look-ups in the cache that found what they wanted. A low value after a while of steady traffic means that the cache does not help much.</source>
        <translation>Der Anteil der Suchen im Cache, die fündig wurden, in Prozent. Ein niedriger Wert nach einiger Zeit gleichmäßigen Betriebs heißt, dass der Cache wenig nützt.</translation>
    </message>
    <message>
        <source>Compression CPU Time</source>
        <translation>CPU-Zeit für Kompression</translation>
    </message>
    <message>
        <source>Bytes Uncompressed</source>
        <translation>Bytes unkomprimiert</translation>
    </message>
    <message>
        <source>Bytes Compressed</source>
        <translation>Bytes komprimiert</translation>
    </message>
    <message>
        <source>Bytes Uncompressed Equiv</source>
        <translation>Bytes unkompr. Äquiv.</translation>
    </message>
    <message>
        <source>Bytes Total Equiv</source>
        <translation>Bytes gesamt Äquiv.</translation>
    </message>
    <message>
        <source>Bytes Total</source>
        <translation>Bytes gesamt</translation>
    </message>
    <message>
        <source>Responses Uncompressed</source>
        <translation>Antworten unkomprimiert</translation>
    </message>
    <message>
        <source>Responses Compressed</source>
        <translation>Antworten komprimiert</translation>
    </message>
    <message>
        <source>% Responses Compressed</source>
        <translation>% Antworten komprimiert</translation>
    </message>
    <message>
        <source>Responses Total</source>
        <translation>Antworten gesamt</translation>
    </message>
</context>
<context>
    <name>CountersConsole</name>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message>
        <source>&amp;Copy Values</source>
        <translation>Werte &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Save as CSV...</source>
        <translation>Als CSV &amp;speichern...</translation>
    </message>
    <message>
        <source>Zentrel Performance Counters</source>
        <translation>Zentrel-Leistungszähler</translation>
    </message>
    <message>
        <source>&amp;Interval:</source>
        <translation>&amp;Intervall:</translation>
    </message>
    <message>
        <source>1 second</source>
        <translation>1 Sekunde</translation>
    </message>
    <message>
        <source>%1 seconds</source>
        <translation>%1 Sekunden</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Zentrel Performance Counters - %1</source>
        <translation>Zentrel-Leistungszähler - %1</translation>
    </message>
    <message>
        <source>&amp;Resume</source>
        <translation>Fortset&amp;zen</translation>
    </message>
    <message>
        <source>There is no connection to a server.</source>
        <translation>Es besteht keine Verbindung zu einem Server.</translation>
    </message>
    <message>
        <source>The console is paused.</source>
        <translation>Die Konsole ist angehalten.</translation>
    </message>
    <message>
        <source>The counters are being read...</source>
        <translation>Die Zähler werden gelesen...</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Save Counters</source>
        <translation>Zähler speichern</translation>
    </message>
    <message>
        <source>Comma separated values (*.csv)</source>
        <translation>Durch Kommas getrennte Werte (*.csv)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>The counters cannot be saved as %1</source>
        <translation>Die Zähler können nicht als %1 gespeichert werden</translation>
    </message>
</context>
<context>
    <name>CustomToolBar</name>
    <message>
        <source>Separator</source>
        <translation>Trennlinie</translation>
    </message>
    <message>
        <source>More buttons</source>
        <translation>Weitere Schaltflächen</translation>
    </message>
</context>
<context>
    <name>CustomizeDialog</name>
    <message>
        <source>Customize Toolbar</source>
        <translation>Symbolleiste anpassen</translation>
    </message>
    <message>
        <source>&amp;Add -&gt;</source>
        <translation>&amp;Hinzufügen -&gt;</translation>
    </message>
    <message>
        <source>&lt;- &amp;Remove</source>
        <translation>&lt;- &amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>R&amp;eset</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>Move &amp;Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Move &amp;Down</source>
        <translation>Nach &amp;unten</translation>
    </message>
    <message>
        <source>A&amp;vailable toolbar buttons:</source>
        <translation>&amp;Verfügbare Schaltflächen:</translation>
    </message>
    <message>
        <source>Current &amp;toolbar buttons:</source>
        <translation>&amp;Aktuelle Schaltflächen:</translation>
    </message>
</context>
<context>
    <name>DataSourcePage</name>
    <message>
        <source>&amp;Test Connectivity</source>
        <translation>Verbindung &amp;testen</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Test</translation>
    </message>
    <message>
        <source>There is no data source yet. Define one in the file .odbc.ini in your home folder or in /etc/odbc.ini, for example with the command &quot;odbcinst -i -s -f FILE&quot;, then open this window again.</source>
        <translation>Es gibt noch keine Datenquelle. Legen Sie eine in der Datei .odbc.ini in Ihrem persönlichen Ordner oder in /etc/odbc.ini an, zum Beispiel mit dem Befehl &quot;odbcinst -i -s -f DATEI&quot;, und öffnen Sie dieses Fenster dann erneut.</translation>
    </message>
    <message>
        <source>Please Select ODBC Data Source:</source>
        <translation>Bitte wählen Sie die ODBC-Datenquelle:</translation>
    </message>
    <message>
        <source>Database UserID:</source>
        <translation>Benutzer der Datenbank:</translation>
    </message>
    <message>
        <source>Database Password:</source>
        <translation>Kennwort der Datenbank:</translation>
    </message>
    <message>
        <source>&amp;Stop test</source>
        <translation>Test an&amp;halten</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Verbindung wird hergestellt...</translation>
    </message>
    <message>
        <source>The test was stopped.</source>
        <translation>Der Test wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>DatabaseExport</name>
    <message>
        <source>Not connected: %1</source>
        <translation>Nicht verbunden: %1</translation>
    </message>
    <message>
        <source>The data source does not answer.</source>
        <translation>Die Datenquelle antwortet nicht.</translation>
    </message>
    <message>
        <source>Another export took run number %1 at the same time. Try again.</source>
        <translation>Ein anderer Export hat gleichzeitig die Laufnummer %1 genommen. Versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>The database can only be read, not written.</source>
        <translation>Die Datenbank kann nur gelesen, nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Table %2 cannot be looked up: %1</source>
        <translation>Tabelle %2 kann nicht nachgeschlagen werden: %1</translation>
    </message>
    <message>
        <source>Table %2 cannot be made: %1</source>
        <translation>Tabelle %2 kann nicht angelegt werden: %1</translation>
    </message>
    <message>
        <source>There is a table %1 of another kind: it has no column %2.</source>
        <translation>Es gibt eine andersartige Tabelle %1: Ihr fehlt die Spalte %2.</translation>
    </message>
    <message>
        <source>There is a table %1 of another kind: its column %2 has another type.</source>
        <translation>Es gibt eine andersartige Tabelle %1: Ihre Spalte %2 hat einen anderen Typ.</translation>
    </message>
    <message>
        <source>There is a table %1 of another kind: it has a column %2.</source>
        <translation>Es gibt eine andersartige Tabelle %1: Sie hat eine Spalte %2.</translation>
    </message>
    <message>
        <source>The table of runs holds no usable numbers.</source>
        <translation>Die Tabelle der Läufe enthält keine brauchbaren Nummern.</translation>
    </message>
    <message>
        <source>Table %2 cannot be written: %1</source>
        <translation>Tabelle %2 kann nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>Table %2 cannot be read: %1</source>
        <translation>Tabelle %2 kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>The last scan could not be read.</source>
        <translation>Der letzte Einlesevorgang konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The database cannot keep the export: %1</source>
        <translation>Die Datenbank kann den Export nicht übernehmen: %1</translation>
    </message>
    <message>
        <source>The database does not answer.</source>
        <translation>Die Datenbank antwortet nicht.</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Läufe</translation>
    </message>
    <message>
        <source>Sites</source>
        <translation>Websites</translation>
    </message>
    <message>
        <source>Cached URLs</source>
        <translation>URLs im Cache</translation>
    </message>
    <message>
        <source>File types</source>
        <translation>Dateitypen</translation>
    </message>
    <message>
        <source>Totals</source>
        <translation>Summen</translation>
    </message>
    <message>
        <source>Counters</source>
        <translation>Zähler</translation>
    </message>
    <message>
        <source>A table needs a name.</source>
        <translation>Eine Tabelle braucht einen Namen.</translation>
    </message>
    <message>
        <source>The name of a table has at most 63 bytes, so that every database takes it.</source>
        <translation>Der Name einer Tabelle hat höchstens 63 Bytes, damit ihn jede Datenbank annimmt.</translation>
    </message>
    <message>
        <source>The name of a table has no control characters.</source>
        <translation>Der Name einer Tabelle enthält keine Steuerzeichen.</translation>
    </message>
    <message>
        <source>Each table needs a name of its own, whatever its capitals.</source>
        <translation>Jede Tabelle braucht einen eigenen Namen, unabhängig von Groß- und Kleinschreibung.</translation>
    </message>
    <message>
        <source>Connected to %1 through %2, for reading only.</source>
        <translation>Verbunden mit %1 über %2, nur lesend.</translation>
    </message>
    <message>
        <source>Connected to %1 through %2.</source>
        <translation>Verbunden mit %1 über %2.</translation>
    </message>
</context>
<context>
    <name>DecompressFile</name>
    <message>
        <source>There is not enough free space in the temporary folder.</source>
        <translation>Im Ordner für temporäre Dateien ist nicht genug Platz frei.</translation>
    </message>
    <message>
        <source>The file unpacks to more than %1.</source>
        <translation>Die Datei ist ausgepackt größer als %1.</translation>
    </message>
    <message>
        <source>Cannot write %1</source>
        <translation>%1 kann nicht geschrieben werden</translation>
    </message>
</context>
<context>
    <name>ExportChoicePage</name>
    <message>
        <source>Last scan</source>
        <translation>Letzter Einlesevorgang</translation>
    </message>
    <message>
        <source>Last scan: %1, %2</source>
        <translation>Zuletzt eingelesen: %1, %2</translation>
    </message>
    <message>
        <source>Nothing was scanned yet, so there is nothing to export.</source>
        <translation>Es wurde noch nichts eingelesen, also gibt es nichts zu exportieren.</translation>
    </message>
    <message>
        <source>Please select what to export:</source>
        <translation>Bitte wählen Sie, was exportiert werden soll:</translation>
    </message>
    <message>
        <source>%1 (rows: %2)</source>
        <translation>%1 (Zeilen: %2)</translation>
    </message>
</context>
<context>
    <name>ExportPreviewPage</name>
    <message>
        <source>Tables</source>
        <translation>Tabellen</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>Tabelle</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>First rows</source>
        <translation>Erste Zeilen</translation>
    </message>
    <message>
        <source>SQL</source>
        <translation>SQL</translation>
    </message>
    <message>
        <source>These rows are going to be &amp;written:</source>
        <translation>Diese Zeilen werden &amp;geschrieben:</translation>
    </message>
    <message>
        <source>The first &amp;rows of the selected table:</source>
        <translation>Die ersten Zei&amp;len der gewählten Tabelle:</translation>
    </message>
    <message>
        <source>Its &amp;SQL:</source>
        <translation>Ihr S&amp;QL:</translation>
    </message>
</context>
<context>
    <name>ExportRunPage</name>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Stopping, and undoing what was written...</source>
        <translation>Wird abgebrochen, Geschriebenes wird zurückgenommen...</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Verbindung wird hergestellt...</translation>
    </message>
    <message>
        <source>Writing...</source>
        <translation>Wird geschrieben...</translation>
    </message>
    <message>
        <source>Finishing...</source>
        <translation>Wird abgeschlossen...</translation>
    </message>
    <message>
        <source>%1 of %2 rows</source>
        <translation>%1 von %2 Zeilen</translation>
    </message>
</context>
<context>
    <name>ExportSummaryPage</name>
    <message>
        <source>Rows that were written</source>
        <translation>Geschriebene Zeilen</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>Tabelle</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>What happened</source>
        <translation>Was geschah</translation>
    </message>
    <message>
        <source>The export is done. It is run number %1.</source>
        <translation>Der Export ist abgeschlossen. Er hat die Laufnummer %1.</translation>
    </message>
    <message>
        <source>It is not known whether the export is in the database.</source>
        <translation>Es ist nicht bekannt, ob der Export in der Datenbank ist.</translation>
    </message>
    <message>
        <source>The export was cancelled.</source>
        <translation>Der Export wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The export failed.</source>
        <translation>Der Export ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>%1 rows in %2 s</source>
        <translation>%1 Zeilen in %2 s</translation>
    </message>
    <message>
        <source>The database went away just when it was to keep the rows. Look whether the newest run is in table %1.</source>
        <translation>Die Datenbank war gerade dann nicht mehr erreichbar, als sie die Zeilen übernehmen sollte. Sehen Sie nach, ob der neueste Lauf in der Tabelle %1 steht.</translation>
    </message>
    <message>
        <source>Everything is undone as soon as the database answers.</source>
        <translation>Alles wird zurückgenommen, sobald die Datenbank antwortet.</translation>
    </message>
    <message>
        <source>Everything was undone; the database is as it was before.</source>
        <translation>Alles wurde zurückgenommen; die Datenbank ist, wie sie vorher war.</translation>
    </message>
    <message>
        <source>All rows were undone. These new tables stayed, empty: %1</source>
        <translation>Alle Zeilen wurden zurückgenommen. Diese neuen Tabellen blieben leer zurück: %1</translation>
    </message>
</context>
<context>
    <name>FileTypeList</name>
    <message>
        <source>File types</source>
        <translation>Dateitypen</translation>
    </message>
    <message>
        <source>Ctrl+1 to Ctrl+5 sort by a column, pressed again the other way round.</source>
        <translation>Strg+1 bis Strg+5 sortieren nach einer Spalte, nochmals gedrückt umgekehrt.</translation>
    </message>
</context>
<context>
    <name>FileTypeModel</name>
    <message>
        <source>File type</source>
        <translation>Dateityp</translation>
    </message>
    <message>
        <source>Count of files</source>
        <translation>Anzahl der Dateien</translation>
    </message>
    <message>
        <source>Compressed size</source>
        <translation>Komprimierte Größe</translation>
    </message>
    <message>
        <source>Uncompressed size</source>
        <translation>Unkomprimierte Größe</translation>
    </message>
    <message>
        <source>What remains after compression, in percent</source>
        <translation>Was nach der Kompression bleibt, in Prozent</translation>
    </message>
    <message>
        <source>Ext</source>
        <translation>Endg.</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Comp</source>
        <translation>Kompr.</translation>
    </message>
    <message>
        <source>Uncomp</source>
        <translation>Unkompr.</translation>
    </message>
    <message>
        <source>Ratio (%)</source>
        <translation>Rate (%)</translation>
    </message>
</context>
<context>
    <name>HelpBook</name>
    <message>
        <source>There is no such page</source>
        <translation>Diese Seite gibt es nicht</translation>
    </message>
    <message>
        <source>The help has no page of this name. The contents and the search lead to all that there are.</source>
        <translation>Die Hilfe hat keine Seite dieses Namens. Der Inhalt und die Suche führen zu allen vorhandenen Seiten.</translation>
    </message>
</context>
<context>
    <name>InfoRows</name>
    <message>
        <source>Count of files, found in Zentrel Cache</source>
        <translation>Anzahl der Dateien, die im Zentrel-Cache gefunden wurden</translation>
    </message>
    <message>
        <source>Total Cached Files:</source>
        <translation>Dateien im Cache:</translation>
    </message>
    <message>
        <source>Compressed Size:</source>
        <translation>Komprimierte Größe:</translation>
    </message>
    <message>
        <source>Uncompressed Size:</source>
        <translation>Unkomprimierte Größe:</translation>
    </message>
    <message>
        <source>Served Compressed:</source>
        <translation>Komprimiert gesendet:</translation>
    </message>
    <message>
        <source>Original Equivalent:</source>
        <translation>Entspricht original:</translation>
    </message>
    <message>
        <source>Bandwith Savings:</source>
        <translation>Bandbreitenersparnis:</translation>
    </message>
    <message>
        <source>Boost Ratio:</source>
        <translation>Gewinn:</translation>
    </message>
    <message>
        <source>Total Hits:</source>
        <translation>Treffer gesamt:</translation>
    </message>
    <message>
        <source>Cache Hits:</source>
        <translation>Cachetreffer:</translation>
    </message>
    <message>
        <source>% Cache Hits:</source>
        <translation>% Cachetreffer:</translation>
    </message>
    <message>
        <source>Compession Level:</source>
        <translation>Kompressionsstufe:</translation>
    </message>
    <message>
        <source>File Remains:</source>
        <translation>Datei verbleibt:</translation>
    </message>
    <message>
        <source>Comp CPU Time:</source>
        <translation>CPU-Zeit Kompr.:</translation>
    </message>
    <message>
        <source>Avg Cache Lifetime:</source>
        <translation>Mittl. Cachedauer:</translation>
    </message>
    <message>
        <source>Cache Created:</source>
        <translation>Cache erstellt:</translation>
    </message>
    <message>
        <source>Cache Expires:</source>
        <translation>Cache läuft ab:</translation>
    </message>
</context>
<context>
    <name>InitPerfCounters</name>
    <message>
        <source>At least one of the performance counters is unavailable.</source>
        <translation>Mindestens einer der Leistungszähler ist nicht verfügbar.</translation>
    </message>
</context>
<context>
    <name>LevelList</name>
    <message>
        <source>Level</source>
        <translation>Stufe</translation>
    </message>
    <message>
        <source>Comp Size  </source>
        <translation>Größe  </translation>
    </message>
    <message>
        <source>CPU Time  </source>
        <translation>CPU-Zeit  </translation>
    </message>
</context>
<context>
    <name>LevelPlot</name>
    <message>
        <source>Size and time at each compression level</source>
        <translation>Größe und Zeit bei jeder Kompressionsstufe</translation>
    </message>
    <message>
        <source>Level %1, in use: size %2, processor time %3</source>
        <translation>Stufe %1, in Gebrauch: Größe %2, Prozessorzeit %3</translation>
    </message>
    <message>
        <source>Level %1: size %2, processor time %3</source>
        <translation>Stufe %1: Größe %2, Prozessorzeit %3</translation>
    </message>
    <message>
        <source>Compression level</source>
        <translation>Kompressionsstufe</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>CPU time (seconds)</source>
        <translation>CPU-Zeit (Sekunden)</translation>
    </message>
    <message>
        <source>Level in use</source>
        <translation>Stufe in Gebrauch</translation>
    </message>
</context>
<context>
    <name>NodeInfo</name>
    <message>
        <source>Directory Information (%1 Files)</source>
        <translation>Ordnerinformation (%1 Dateien)</translation>
    </message>
</context>
<context>
    <name>Odbc</name>
    <message>
        <source>The name of a data source may have 32 bytes at the most.</source>
        <translation>Der Name einer Datenquelle darf höchstens 32 Bytes haben.</translation>
    </message>
    <message>
        <source>The driver failed without a reason.</source>
        <translation>Der Treiber meldete einen Fehler ohne Grund.</translation>
    </message>
    <message>
        <source>A text is longer than 16 MB.</source>
        <translation>Ein Text ist länger als 16 MB.</translation>
    </message>
</context>
<context>
    <name>PdhStatus</name>
    <message>
        <source>Unable to connect to specified machine or machine is off line.</source>
        <translation>Mit dem angegebenen Computer kann keine Verbindung hergestellt werden, oder er ist offline.</translation>
    </message>
    <message>
        <source>The specified instance is not present.</source>
        <translation>Die angegebene Instanz ist nicht vorhanden.</translation>
    </message>
    <message>
        <source>There is more data to return than would fit in the supplied buffer. Allocate a larger buffer and call the function again.</source>
        <translation>Es liegen mehr Daten vor, als in den Puffer passen. Stellen Sie einen größeren Puffer bereit, und rufen Sie die Funktion erneut auf.</translation>
    </message>
    <message>
        <source>The data item has been added to the query, but has not been validated nor accessed. No other status information on this data item is available.</source>
        <translation>Das Datenelement wurde der Abfrage hinzugefügt, aber weder geprüft noch gelesen. Weitere Statusinformationen dazu sind nicht verfügbar.</translation>
    </message>
    <message>
        <source>The selected operation should be retried.</source>
        <translation>Der gewählte Vorgang sollte wiederholt werden.</translation>
    </message>
    <message>
        <source>No data to return.</source>
        <translation>Es liegen keine Daten vor.</translation>
    </message>
    <message>
        <source>A counter with a negative denominator value was detected.</source>
        <translation>Ein Zähler mit negativem Nenner wurde gefunden.</translation>
    </message>
    <message>
        <source>A counter with a negative timebase value was detected.</source>
        <translation>Ein Zähler mit negativer Zeitbasis wurde gefunden.</translation>
    </message>
    <message>
        <source>A counter with a negative value was detected.</source>
        <translation>Ein Zähler mit negativem Wert wurde gefunden.</translation>
    </message>
    <message>
        <source>The user cancelled the dialog box.</source>
        <translation>Der Benutzer hat das Dialogfeld abgebrochen.</translation>
    </message>
    <message>
        <source>The end of the log file was reached.</source>
        <translation>Das Ende der Protokolldatei ist erreicht.</translation>
    </message>
    <message>
        <source>Unable to map to the performance counter name data files. The data will be read from the registry and stored locally.</source>
        <translation>Die Datendateien mit den Namen der Leistungszähler können nicht eingeblendet werden. Die Daten werden aus der Registrierung gelesen und lokal gespeichert.</translation>
    </message>
    <message>
        <source>The specified object is not found on the system.</source>
        <translation>Das angegebene Objekt ist im System nicht vorhanden.</translation>
    </message>
    <message>
        <source>The specified counter could not be found.</source>
        <translation>Der angegebene Zähler wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>The returned data is not valid.</source>
        <translation>Die gelieferten Daten sind ungültig.</translation>
    </message>
    <message>
        <source>A PDH function could not allocate enough temporary memory to complete the operation. Close some applications or extend the pagefile and retry the function.</source>
        <translation>Eine PDH-Funktion konnte nicht genug Arbeitsspeicher für den Vorgang erhalten. Schließen Sie einige Anwendungen, oder vergrößern Sie die Auslagerungsdatei, und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>The handle is not a valid PDH object.</source>
        <translation>Das Handle ist kein gültiges PDH-Objekt.</translation>
    </message>
    <message>
        <source>A required argument is missing or incorrect.</source>
        <translation>Ein nötiges Argument fehlt oder ist falsch.</translation>
    </message>
    <message>
        <source>Unable to find the specified function.</source>
        <translation>Die angegebene Funktion wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>No counter was specified.</source>
        <translation>Es wurde kein Zähler angegeben.</translation>
    </message>
    <message>
        <source>Unable to parse the counter path. Check the format and syntax of the specified path.</source>
        <translation>Der Zählerpfad ist nicht lesbar. Prüfen Sie Format und Syntax des angegebenen Pfads.</translation>
    </message>
    <message>
        <source>The buffer passed by the caller is invalid.</source>
        <translation>Der vom Aufrufer übergebene Puffer ist ungültig.</translation>
    </message>
    <message>
        <source>The requested data is larger than the buffer supplied. Unable to return the requested data.</source>
        <translation>Die angeforderten Daten sind größer als der bereitgestellte Puffer. Sie können nicht geliefert werden.</translation>
    </message>
    <message>
        <source>Unable to connect to the requested machine.</source>
        <translation>Mit dem gewünschten Computer kann keine Verbindung hergestellt werden.</translation>
    </message>
    <message>
        <source>The specified counter path could not be interpreted.</source>
        <translation>Der angegebene Zählerpfad konnte nicht ausgewertet werden.</translation>
    </message>
    <message>
        <source>The instance name could not be read from the specified counter path.</source>
        <translation>Der Name der Instanz konnte dem angegebenen Zählerpfad nicht entnommen werden.</translation>
    </message>
    <message>
        <source>The data is not valid.</source>
        <translation>Die Daten sind nicht gültig.</translation>
    </message>
    <message>
        <source>The dialog box data block was missing or invalid.</source>
        <translation>Der Datenblock des Dialogfelds fehlte oder war ungültig.</translation>
    </message>
    <message>
        <source>Unable to read the counter and/or explain text from the specified machine.</source>
        <translation>Die Zähler- oder Erklärungstexte des angegebenen Computers sind nicht lesbar.</translation>
    </message>
    <message>
        <source>Unable to create the specified log file.</source>
        <translation>Die angegebene Protokolldatei kann nicht erstellt werden.</translation>
    </message>
    <message>
        <source>Unable to open the specified log file.</source>
        <translation>Die angegebene Protokolldatei kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The specified log file type has not been installed on this system.</source>
        <translation>Der angegebene Typ von Protokolldatei ist auf diesem System nicht installiert.</translation>
    </message>
    <message>
        <source>No more data is available.</source>
        <translation>Es sind keine weiteren Daten verfügbar.</translation>
    </message>
    <message>
        <source>The specified record was not found in the log file.</source>
        <translation>Der angegebene Datensatz wurde in der Protokolldatei nicht gefunden.</translation>
    </message>
    <message>
        <source>The specified data source is a log file.</source>
        <translation>Die angegebene Datenquelle ist eine Protokolldatei.</translation>
    </message>
    <message>
        <source>The specified data source is the current activity.</source>
        <translation>Die angegebene Datenquelle ist die laufende Aktivität.</translation>
    </message>
    <message>
        <source>The log file header could not be read.</source>
        <translation>Der Kopf der Protokolldatei konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Unable to find the specified file.</source>
        <translation>Die angegebene Datei wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>There is already a file with the specified file name.</source>
        <translation>Es gibt schon eine Datei mit dem angegebenen Namen.</translation>
    </message>
    <message>
        <source>The function referenced has not been implemented.</source>
        <translation>Die aufgerufene Funktion ist nicht implementiert.</translation>
    </message>
    <message>
        <source>Unable to find the specified string in the list of performance name and explain text strings.</source>
        <translation>Der angegebene Text wurde in der Liste der Leistungsnamen und Erklärungstexte nicht gefunden.</translation>
    </message>
    <message>
        <source>The format of the specified log file is not recognized by the PDH DLL.</source>
        <translation>Das Format der angegebenen Protokolldatei wird von der PDH-Bibliothek nicht erkannt.</translation>
    </message>
    <message>
        <source>The specified Log Service command value is not recognized.</source>
        <translation>Der angegebene Befehl des Protokolldienstes wird nicht erkannt.</translation>
    </message>
    <message>
        <source>The specified Query from the Log Service could not be found or could not be opened.</source>
        <translation>Die angegebene Abfrage des Protokolldienstes wurde nicht gefunden oder konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The Performance Data Log Service key could not be opened. This may be due to insufficient privilege or because the service has not been installed.</source>
        <translation>Der Schlüssel des Leistungsprotokolldienstes konnte nicht geöffnet werden. Vielleicht fehlen Rechte, oder der Dienst ist nicht installiert.</translation>
    </message>
    <message>
        <source>An error occurred while accessing the WBEM data store.</source>
        <translation>Beim Zugriff auf den WBEM-Datenspeicher trat ein Fehler auf.</translation>
    </message>
    <message>
        <source>The Performance Data Log service key could not be opened. This may be due to insufficient privilege or because the service has not been installed.</source>
        <translation>Der Schlüssel des Leistungsprotokolldienstes konnte nicht geöffnet werden. Vielleicht fehlen Rechte, oder der Dienst ist nicht installiert.</translation>
    </message>
    <message>
        <source>The maximum log file size specified is too small to log the selected counters.</source>
        <translation>Die angegebene Höchstgröße der Protokolldatei ist zu klein für die gewählten Zähler.</translation>
    </message>
    <message>
        <source>Unable to connect to the WMI server on requested machine.</source>
        <translation>Mit dem WMI-Server des gewünschten Computers kann keine Verbindung hergestellt werden.</translation>
    </message>
    <message>
        <source>Performance counter in has already been added in the performance query. This counter is ignored.</source>
        <translation>Der Leistungszähler wurde der Abfrage schon hinzugefügt. Dieser Zähler wird übergangen.</translation>
    </message>
    <message>
        <source>Unable to read counter information and data from input binary log files.</source>
        <translation>Zählerinformationen und Daten sind aus den binären Protokolldateien nicht lesbar.</translation>
    </message>
    <message>
        <source>At least one of the input binary log files contain fewer than two data samples.</source>
        <translation>Mindestens eine der binären Protokolldateien enthält weniger als zwei Messwerte.</translation>
    </message>
    <message>
        <source>The version of the operating system on the target computer is later than that on the local computer. This operation is not available from the local computer.</source>
        <translation>Das Betriebssystem des Zielcomputers ist neuer als das des lokalen Computers. Dieser Vorgang ist vom lokalen Computer aus nicht möglich.</translation>
    </message>
    <message>
        <source>The version of the operating system on the target computer is too old. This operation is not available from the local computer.</source>
        <translation>Das Betriebssystem des Zielcomputers ist zu alt. Dieser Vorgang ist vom lokalen Computer aus nicht möglich.</translation>
    </message>
    <message>
        <source>System is busy. Timeout when collecting counter data. Please retry later or increase CollectTime registry value.</source>
        <translation>Das System ist beschäftigt; die Zeit für das Erheben der Zählerdaten ist abgelaufen. Versuchen Sie es später erneut, oder erhöhen Sie den Registrierungswert CollectTime.</translation>
    </message>
    <message>
        <source>PDH Function could not be executed</source>
        <translation>Die PDH-Funktion konnte nicht ausgeführt werden</translation>
    </message>
    <message>
        <source>Error 0x%1 - %2</source>
        <translation>Fehler 0x%1 - %2</translation>
    </message>
</context>
<context>
    <name>PerfSummary</name>
    <message>
        <source>Cannot collect performance data</source>
        <translation>Die Leistungsdaten können nicht erhoben werden</translation>
    </message>
</context>
<context>
    <name>PrintHelp</name>
    <message>
        <source>there is no help page of this name; without a name the pages are listed</source>
        <translation>es gibt keine Hilfeseite dieses Namens; ohne Namen werden die Seiten aufgelistet</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
</context>
<context>
    <name>ReadSites</name>
    <message>
        <source>(All Unassigned)</source>
        <translation>(Keine zugewiesen)</translation>
    </message>
</context>
<context>
    <name>ScrollBars</name>
    <message>
        <source>Horizontal scroll bar</source>
        <translation>Waagerechte Bildlaufleiste</translation>
    </message>
    <message>
        <source>Vertical scroll bar</source>
        <translation>Senkrechte Bildlaufleiste</translation>
    </message>
</context>
<context>
    <name>ServerSelection</name>
    <message>
        <source>The server has no web site.</source>
        <translation>Der Server hat keine Website.</translation>
    </message>
    <message>
        <source>Cannot connect to %1.</source>
        <translation>Mit %1 kann keine Verbindung hergestellt werden.</translation>
    </message>
    <message>
        <source>IIS Administration runtime is not installed.</source>
        <translation>Die Laufzeitumgebung der IIS-Verwaltung ist nicht installiert.</translation>
    </message>
    <message>
        <source>Access denied</source>
        <translation>Zugriff verweigert</translation>
    </message>
    <message>
        <source>Unable to retrieve the list of web sites from the server</source>
        <translation>Die Liste der Websites kann vom Server nicht abgerufen werden</translation>
    </message>
    <message>
        <source>You must select at least one website for analysis</source>
        <translation>Sie müssen mindestens eine Website zur Auswertung wählen</translation>
    </message>
</context>
<context>
    <name>ShowError</name>
    <message>
        <source>(Error %1 - %2)</source>
        <translation>(Fehler %1 - %2)</translation>
    </message>
</context>
<context>
    <name>SiteListModel</name>
    <message>
        <source>%1, not running</source>
        <translation>%1, läuft nicht</translation>
    </message>
    <message>
        <source>Web Site</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
</context>
<context>
    <name>SplitterBar</name>
    <message>
        <source>Divider</source>
        <translation>Trennbalken</translation>
    </message>
    <message>
        <source>Divider between %1 and %2</source>
        <translation>Trennbalken zwischen %1 und %2</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>StatusPanels</name>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Verbindung</translation>
    </message>
</context>
<context>
    <name>SystemError</name>
    <message>
        <source>The system cannot find the file specified.</source>
        <translation>Das System kann die angegebene Datei nicht finden.</translation>
    </message>
    <message>
        <source>The system cannot find the path specified.</source>
        <translation>Das System kann den angegebenen Pfad nicht finden.</translation>
    </message>
    <message>
        <source>Access is denied.</source>
        <translation>Zugriff verweigert.</translation>
    </message>
    <message>
        <source>The handle is invalid.</source>
        <translation>Das Handle ist ungültig.</translation>
    </message>
    <message>
        <source>The data is invalid.</source>
        <translation>Die Daten sind ungültig.</translation>
    </message>
    <message>
        <source>Not enough memory is available to complete this operation.</source>
        <translation>Für diesen Vorgang ist nicht genug Speicher verfügbar.</translation>
    </message>
    <message>
        <source>The system cannot read from or write to the device.</source>
        <translation>Das System kann auf dem Gerät nicht lesen oder schreiben.</translation>
    </message>
    <message>
        <source>The process cannot access the file because it is being used by another process.</source>
        <translation>Der Prozess kann nicht auf die Datei zugreifen, da sie von einem anderen Prozess verwendet wird.</translation>
    </message>
    <message>
        <source>The request is not supported.</source>
        <translation>Die Anforderung wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>The parameter is incorrect.</source>
        <translation>Der Parameter ist falsch.</translation>
    </message>
    <message>
        <source>There is not enough space on the disk.</source>
        <translation>Auf dem Datenträger ist nicht genug Speicherplatz frei.</translation>
    </message>
    <message>
        <source>The file name, directory name, or volume label syntax is incorrect.</source>
        <translation>Die Syntax für den Dateinamen, Ordnernamen oder die Datenträgerbezeichnung ist falsch.</translation>
    </message>
    <message>
        <source>The specified path is invalid.</source>
        <translation>Der angegebene Pfad ist ungültig.</translation>
    </message>
    <message>
        <source>Cannot create a file when that file already exists.</source>
        <translation>Eine Datei, die schon vorhanden ist, kann nicht erstellt werden.</translation>
    </message>
    <message>
        <source>More data is available.</source>
        <translation>Es sind weitere Daten verfügbar.</translation>
    </message>
    <message>
        <source>No more data is available.</source>
        <translation>Es sind keine weiteren Daten verfügbar.</translation>
    </message>
    <message>
        <source>The operation is in progress.</source>
        <translation>Der Vorgang läuft.</translation>
    </message>
    <message>
        <source>Services that run need this service.</source>
        <translation>Laufende Dienste brauchen diesen Dienst.</translation>
    </message>
    <message>
        <source>The service did not respond to the start or control request in a timely fashion.</source>
        <translation>Der Dienst hat nicht rechtzeitig auf die Start- oder Steuerungsanforderung geantwortet.</translation>
    </message>
    <message>
        <source>A thread could not be created for the service.</source>
        <translation>Für den Dienst konnte kein Thread erstellt werden.</translation>
    </message>
    <message>
        <source>The service database is locked.</source>
        <translation>Die Dienstdatenbank ist gesperrt.</translation>
    </message>
    <message>
        <source>An instance of the service is already running.</source>
        <translation>Eine Instanz des Dienstes läuft bereits.</translation>
    </message>
    <message>
        <source>The service is disabled.</source>
        <translation>Der Dienst ist deaktiviert.</translation>
    </message>
    <message>
        <source>The specified service does not exist.</source>
        <translation>Der angegebene Dienst ist nicht vorhanden.</translation>
    </message>
    <message>
        <source>The service has not been started.</source>
        <translation>Der Dienst ist nicht gestartet.</translation>
    </message>
    <message>
        <source>The dependency service or group failed to start.</source>
        <translation>Ein benötigter Dienst oder eine benötigte Gruppe konnte nicht gestartet werden.</translation>
    </message>
    <message>
        <source>The service did not start because its account could not log on.</source>
        <translation>Der Dienst wurde nicht gestartet, weil sich sein Konto nicht anmelden konnte.</translation>
    </message>
    <message>
        <source>A service that the service depends on does not exist or will be deleted.</source>
        <translation>Ein Dienst, von dem der Dienst abhängt, ist nicht vorhanden oder wird gelöscht.</translation>
    </message>
    <message>
        <source>The registry is corrupted.</source>
        <translation>Die Registrierung ist beschädigt.</translation>
    </message>
    <message>
        <source>An I/O operation initiated by the registry failed unrecoverably.</source>
        <translation>Ein E/A-Vorgang der Registrierung ist endgültig fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Illegal operation attempted on a registry key that has been marked for deletion.</source>
        <translation>Unzulässiger Vorgang an einem Registrierungsschlüssel, der zum Löschen markiert ist.</translation>
    </message>
    <message>
        <source>The operation was canceled by the user.</source>
        <translation>Der Vorgang wurde vom Benutzer abgebrochen.</translation>
    </message>
    <message>
        <source>The file or directory is corrupted and unreadable.</source>
        <translation>Die Datei oder der Ordner ist beschädigt und nicht lesbar.</translation>
    </message>
    <message>
        <source>The operation took too long and was given up.</source>
        <translation>Der Vorgang dauerte zu lange und wurde aufgegeben.</translation>
    </message>
    <message>
        <source>The interface is unknown.</source>
        <translation>Die Schnittstelle ist unbekannt.</translation>
    </message>
    <message>
        <source>The server is unavailable.</source>
        <translation>Der Server ist nicht verfügbar.</translation>
    </message>
    <message>
        <source>The interface was not found.</source>
        <translation>Die Schnittstelle wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>Unbekannter Fehler</translation>
    </message>
</context>
<context>
    <name>TableNamesPage</name>
    <message>
        <source>Please name the tables. Those that are missing are made; each export adds its rows.</source>
        <translation>Bitte benennen Sie die Tabellen. Fehlende werden angelegt; jeder Export fügt seine Zeilen hinzu.</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1:</translation>
    </message>
    <message>
        <source>Table for: %1</source>
        <translation>Tabelle für: %1</translation>
    </message>
</context>
<context>
    <name>TempFolder</name>
    <message>
        <source>Cannot find the temporary folder</source>
        <translation>Der Ordner für temporäre Dateien ist nicht zu finden</translation>
    </message>
    <message>
        <source>Cannot make a folder in %1</source>
        <translation>In %1 kann kein Ordner erstellt werden</translation>
    </message>
    <message>
        <source>Cannot make a temporary file in %1</source>
        <translation>In %1 kann keine temporäre Datei erstellt werden</translation>
    </message>
</context>
<context>
    <name>frmAbout</name>
    <message>
        <source>About </source>
        <translation>Über </translation>
    </message>
    <message>
        <source>Copyright © 2026 the authors of Quillet. Licensed under the Apache License, Version 2.0, and provided as it is, without warranties of any kind.</source>
        <translation>Copyright © 2026 die Autoren von Quillet. Lizenziert unter der Apache-Lizenz, Version 2.0, und bereitgestellt, wie es ist, ohne jede Gewährleistung.</translation>
    </message>
    <message>
        <source>&amp;System Info...</source>
        <translation>&amp;Systeminfo...</translation>
    </message>
    <message>
        <source>System information is unavailable at this time</source>
        <translation>Systeminformationen sind zurzeit nicht verfügbar</translation>
    </message>
    <message>
        <source>Version </source>
        <translation>Version </translation>
    </message>
</context>
<context>
    <name>frmDbExport</name>
    <message>
        <source>&lt; &amp;Previous</source>
        <translation>&lt; &amp;Zurück</translation>
    </message>
    <message>
        <source>&amp;Next &gt;</source>
        <translation>&amp;Weiter &gt;</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Zentrel Report Export to Database</source>
        <translation>Zentrel-Bericht in eine Datenbank exportieren</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>&amp;Finish</source>
        <translation>&amp;Fertigstellen</translation>
    </message>
    <message>
        <source>Please select an ODBC data source first.</source>
        <translation>Bitte wählen Sie zuerst eine ODBC-Datenquelle.</translation>
    </message>
</context>
<context>
    <name>frmFileInfo</name>
    <message>
        <source>Analysis:</source>
        <translation>Analyse:</translation>
    </message>
    <message>
        <source>Compression &amp;Analysis &gt;&gt;</source>
        <translation>Kompressions&amp;analyse &gt;&gt;</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>File Information:</source>
        <translation>Dateiinformation:</translation>
    </message>
    <message>
        <source>File Path:</source>
        <translation>Dateipfad:</translation>
    </message>
    <message>
        <source>Server Location:</source>
        <translation>Ort auf dem Server:</translation>
    </message>
    <message>
        <source>Compression Level:</source>
        <translation>Kompressionsstufe:</translation>
    </message>
    <message>
        <source>Compressed Size:</source>
        <translation>Komprimierte Größe:</translation>
    </message>
    <message>
        <source>Uncompressed Size:</source>
        <translation>Unkomprimierte Größe:</translation>
    </message>
    <message>
        <source>Current Ratio:</source>
        <translation>Aktuelle Rate:</translation>
    </message>
    <message>
        <source>Total Hits:</source>
        <translation>Treffer gesamt:</translation>
    </message>
    <message>
        <source>Cache Hits:</source>
        <translation>Cachetreffer:</translation>
    </message>
    <message>
        <source>Analysis</source>
        <translation>Analyse</translation>
    </message>
    <message>
        <source>&amp;Resulting speed and sizes at various levels</source>
        <translation>E&amp;rgebnis: Tempo und Größe bei verschiedenen Stufen</translation>
    </message>
    <message>
        <source>Compression (1 - Max Speed, 9 - Min Size)</source>
        <translation>Kompression (1 - höchstes Tempo, 9 - kleinste Größe)</translation>
    </message>
    <message>
        <source>Compression Analysis:</source>
        <translation>Kompressionsanalyse:</translation>
    </message>
    <message>
        <source>Step %1 of %2</source>
        <translation>Schritt %1 von %2</translation>
    </message>
    <message>
        <source>Compression Analysis (input: %1)</source>
        <translation>Kompressionsanalyse (Eingabe: %1)</translation>
    </message>
</context>
<context>
    <name>frmHelp</name>
    <message>
        <source>Zentrel Quillet Help</source>
        <translation>Zentrel Quillet - Hilfe</translation>
    </message>
    <message>
        <source>Help page</source>
        <translation>Hilfeseite</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>F&amp;orward</source>
        <translation>&amp;Vorwärts</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>S&amp;maller</source>
        <translation>&amp;Kleiner</translation>
    </message>
    <message>
        <source>&amp;Larger</source>
        <translation>&amp;Größer</translation>
    </message>
    <message>
        <source>Usual size</source>
        <translation>Übliche Größe</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search the help</source>
        <translation>Die Hilfe durchsuchen</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Found pages</source>
        <translation>Gefundene Seiten</translation>
    </message>
    <message>
        <source>Nothing found.</source>
        <translation>Nichts gefunden.</translation>
    </message>
</context>
<context>
    <name>frmMain</name>
    <message>
        <source>File Information</source>
        <translation>Dateiinformation</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>Server</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Cached files</source>
        <translation>Dateien im Cache</translation>
    </message>
    <message>
        <source>File type totals</source>
        <translation>Dateitypen</translation>
    </message>
    <message>
        <source>Cache totals</source>
        <translation>Cachesummen</translation>
    </message>
    <message>
        <source>File info</source>
        <translation>Dateiinfo</translation>
    </message>
    <message>
        <source>Performance summary</source>
        <translation>Leistungsübersicht</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source> Connect </source>
        <translation> Verbinden </translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Connect to another IIS server</source>
        <translation>Mit einem anderen IIS-Server verbinden</translation>
    </message>
    <message>
        <source> Stop </source>
        <translation> Stopp </translation>
    </message>
    <message>
        <source>Stop Reload</source>
        <translation>Einlesen stoppen</translation>
    </message>
    <message>
        <source>Stop reload operation</source>
        <translation>Das Einlesen anhalten</translation>
    </message>
    <message>
        <source> Refresh </source>
        <translation> Aktualisieren </translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Reload cache information from the server</source>
        <translation>Die Cacheinformationen neu vom Server einlesen</translation>
    </message>
    <message>
        <source> Remove </source>
        <translation> Entfernen </translation>
    </message>
    <message>
        <source>Remove Cache</source>
        <translation>Cache entfernen</translation>
    </message>
    <message>
        <source>Remove cached files</source>
        <translation>Dateien aus dem Cache entfernen</translation>
    </message>
    <message>
        <source> Panels </source>
        <translation> Bereiche </translation>
    </message>
    <message>
        <source>View Panels</source>
        <translation>Bereiche anzeigen</translation>
    </message>
    <message>
        <source>Select panels</source>
        <translation>Bereiche auswählen</translation>
    </message>
    <message>
        <source> Help </source>
        <translation> Hilfe </translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Open help contents</source>
        <translation>Den Inhalt der Hilfe öffnen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Connect...</source>
        <translation>&amp;Verbinden...</translation>
    </message>
    <message>
        <source>&amp;Select web sites...</source>
        <translation>&amp;Websites auswählen...</translation>
    </message>
    <message>
        <source>&amp;Rescan IIS</source>
        <translation>IIS &amp;neu einlesen</translation>
    </message>
    <message>
        <source>&amp;Expand all nodes</source>
        <translation>&amp;Alle Knoten aufklappen</translation>
    </message>
    <message>
        <source>&amp;Exit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Toolbars</source>
        <translation>S&amp;ymbolleisten</translation>
    </message>
    <message>
        <source>&amp;Standard</source>
        <translation>&amp;Standard</translation>
    </message>
    <message>
        <source>&amp;Customize...</source>
        <translation>&amp;Anpassen...</translation>
    </message>
    <message>
        <source>Status &amp;Bar</source>
        <translation>Status&amp;leiste</translation>
    </message>
    <message>
        <source>&amp;Summary Tooltips</source>
        <translation>&amp;QuickInfos der Übersicht</translation>
    </message>
    <message>
        <source>&amp;Panels</source>
        <translation>&amp;Bereiche</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Extras</translation>
    </message>
    <message>
        <source>&amp;Performance counters...</source>
        <translation>&amp;Leistungszähler...</translation>
    </message>
    <message>
        <source>&amp;Reset Performance counters</source>
        <translation>Leistungszähler &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Full cache cleanup</source>
        <translation>&amp;Cache vollständig leeren</translation>
    </message>
    <message>
        <source>&amp;Auto-refresh statistics</source>
        <translation>Statistik &amp;automatisch aktualisieren</translation>
    </message>
    <message>
        <source>&amp;Save position</source>
        <translation>&amp;Position speichern</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>&amp;Optionen...</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Contents...</source>
        <translation>&amp;Inhalt...</translation>
    </message>
    <message>
        <source>Zentrel &amp;Website</source>
        <translation>Zentrel-&amp;Website</translation>
    </message>
    <message>
        <source>&amp;About...</source>
        <translation>&amp;Über...</translation>
    </message>
    <message>
        <source>Tree Popup Menu</source>
        <translation>Kontextmenü des Baums</translation>
    </message>
    <message>
        <source>&amp;Details</source>
        <translation>&amp;Details</translation>
    </message>
    <message>
        <source>&amp;Refresh</source>
        <translation>&amp;Aktualisieren</translation>
    </message>
    <message>
        <source>Delete &amp;cache</source>
        <translation>&amp;Cache löschen</translation>
    </message>
    <message>
        <source>Compression &amp;analysis</source>
        <translation>&amp;Kompressionsanalyse</translation>
    </message>
    <message>
        <source>Rescan &amp;IIS</source>
        <translation>&amp;IIS neu einlesen</translation>
    </message>
    <message>
        <source>Perf Popup Menu</source>
        <translation>Kontextmenü der Leistungsübersicht</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>File Type Totals</source>
        <translation>Dateitypen</translation>
    </message>
    <message>
        <source>&amp;File type totals</source>
        <translation>&amp;Dateitypen</translation>
    </message>
    <message>
        <source>Cache Totals</source>
        <translation>Cachesummen</translation>
    </message>
    <message>
        <source>&amp;Cache totals</source>
        <translation>&amp;Cachesummen</translation>
    </message>
    <message>
        <source>&amp;File info</source>
        <translation>Datei&amp;info</translation>
    </message>
    <message>
        <source>Performance Summary</source>
        <translation>Leistungsübersicht</translation>
    </message>
    <message>
        <source>&amp;Performance Summary</source>
        <translation>&amp;Leistungsübersicht</translation>
    </message>
    <message>
        <source>&amp;All</source>
        <translation>&amp;Alle</translation>
    </message>
    <message>
        <source>%1 (Boost %2)</source>
        <translation>%1 (Gewinn %2)</translation>
    </message>
    <message>
        <source>Re&amp;port...</source>
        <translation>Be&amp;richt...</translation>
    </message>
    <message>
        <source>Export to &amp;database...</source>
        <translation>In &amp;Datenbank exportieren...</translation>
    </message>
</context>
<context>
    <name>frmOptions</name>
    <message>
        <source>Quillet Options</source>
        <translation>Quillet-Optionen</translation>
    </message>
    <message>
        <source>Startup</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Application behavior on start</source>
        <translation>Verhalten der Anwendung beim Start</translation>
    </message>
    <message>
        <source>On &amp;Start</source>
        <translation>Beim &amp;Start</translation>
    </message>
    <message>
        <source>&amp;Bring up the &quot;Select server&quot; dialog</source>
        <translation>Den Dialog „Server wählen“ &amp;zeigen</translation>
    </message>
    <message>
        <source>Connect to the &amp;last accessed server</source>
        <translation>Mit dem &amp;letzten Server verbinden</translation>
    </message>
    <message>
        <source>&amp;Connect to the local server</source>
        <translation>Mit dem lo&amp;kalen Server verbinden</translation>
    </message>
    <message>
        <source>&amp;Remember </source>
        <translation>&amp;Merken: </translation>
    </message>
    <message>
        <source>last accessed servers</source>
        <translation>zuletzt benutzte Server</translation>
    </message>
    <message>
        <source>Servers</source>
        <translation>Server</translation>
    </message>
    <message>
        <source>Server Options</source>
        <translation>Serveroptionen</translation>
    </message>
    <message>
        <source>Start Remote Registry &amp;service</source>
        <translation>Remoteregistrierungsdienst &amp;starten</translation>
    </message>
    <message>
        <source>&amp;Never</source>
        <translation>N&amp;ie</translation>
    </message>
    <message>
        <source>&amp;Prompt</source>
        <translation>Nach&amp;fragen</translation>
    </message>
    <message>
        <source>&amp;Automatically</source>
        <translation>&amp;Automatisch</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Sonstiges</translation>
    </message>
    <message>
        <source>Other Options</source>
        <translation>Sonstige Optionen</translation>
    </message>
    <message>
        <source>Save &amp;States</source>
        <translation>&amp;Zustände speichern</translation>
    </message>
    <message>
        <source>&amp;Window position</source>
        <translation>&amp;Fensterposition</translation>
    </message>
    <message>
        <source>&amp;Panels</source>
        <translation>&amp;Bereiche</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>An&amp;sicht</translation>
    </message>
    <message>
        <source>&amp;Auto-refresh</source>
        <translation>&amp;Automatische Aktualisierung</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>Über&amp;nehmen</translation>
    </message>
    <message>
        <source>&apos;Remember last servers&apos; value must be a number in 0..200 range</source>
        <translation>Die Zahl der gemerkten Server muss im Bereich 0..200 liegen</translation>
    </message>
</context>
<context>
    <name>frmReport</name>
    <message>
        <source>Zentrel Cache Report</source>
        <translation>Zentrel-Cachebericht</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
    <message>
        <source>&amp;Save As...</source>
        <translation>&amp;Speichern unter...</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Refresh</source>
        <translation>&amp;Aktualisieren</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>The report cannot be made.</source>
        <translation>Der Bericht kann nicht erstellt werden.</translation>
    </message>
    <message>
        <source>The report is being made...</source>
        <translation>Der Bericht wird erstellt...</translation>
    </message>
    <message>
        <source>Nothing was scanned yet.</source>
        <translation>Es wurde noch nichts eingelesen.</translation>
    </message>
    <message>
        <source>Save Report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>Web page (*.html)</source>
        <translation>Webseite (*.html)</translation>
    </message>
    <message>
        <source>PDF document (*.pdf)</source>
        <translation>PDF-Dokument (*.pdf)</translation>
    </message>
    <message>
        <source>Comma separated values (*.csv)</source>
        <translation>Durch Kommas getrennte Werte (*.csv)</translation>
    </message>
    <message>
        <source>JSON data (*.json)</source>
        <translation>JSON-Daten (*.json)</translation>
    </message>
    <message>
        <source>The name of a report ends in .html, .pdf, .csv or .json.</source>
        <translation>Der Name eines Berichts endet auf .html, .pdf, .csv oder .json.</translation>
    </message>
    <message>
        <source>The report cannot be saved as %1</source>
        <translation>Der Bericht kann nicht als %1 gespeichert werden</translation>
    </message>
    <message>
        <source>The cache is being read. Refresh when that is done.</source>
        <translation>Der Cache wird gerade eingelesen. Aktualisieren Sie danach.</translation>
    </message>
</context>
<context>
    <name>frmServer</name>
    <message>
        <source>&amp;Connect</source>
        <translation>&amp;Verbinden</translation>
    </message>
    <message>
        <source>&amp;Select All</source>
        <translation>&amp;Alle auswählen</translation>
    </message>
    <message>
        <source>&amp;Unselect All</source>
        <translation>A&amp;uswahl aufheben</translation>
    </message>
    <message>
        <source>&amp;Toggle</source>
        <translation>Um&amp;kehren</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>&amp;Server:</source>
        <translation>&amp;Server:</translation>
    </message>
    <message>
        <source>&amp;Web sites:</source>
        <translation>&amp;Websites:</translation>
    </message>
    <message>
        <source>Not connected to this server</source>
        <translation>Nicht mit diesem Server verbunden</translation>
    </message>
    <message>
        <source>The web sites could not be listed</source>
        <translation>Die Websites konnten nicht aufgelistet werden</translation>
    </message>
    <message>
        <source>Not connected to this server yet</source>
        <translation>Noch nicht mit diesem Server verbunden</translation>
    </message>
    <message>
        <source>Reading the list of web sites...</source>
        <translation>Die Liste der Websites wird gelesen...</translation>
    </message>
    <message>
        <source>%1 of the first %2 web sites checked; there are more</source>
        <translation>%1 der ersten %2 Websites ausgewählt; es gibt noch mehr</translation>
    </message>
    <message>
        <source>%1 of %2 web sites checked</source>
        <translation>%1 von %2 Websites ausgewählt</translation>
    </message>
    <message>
        <source>Select Server and Web Sites</source>
        <translation>Server und Websites wählen</translation>
    </message>
</context>
<context>
    <name>modServices</name>
    <message>
        <source>Access denied</source>
        <translation>Zugriff verweigert</translation>
    </message>
    <message>
        <source>The specified service name is invalid</source>
        <translation>Der angegebene Dienstname ist ungültig</translation>
    </message>
    <message>
        <source>The process for the service was started, but it did not check in with SC Manager</source>
        <translation>Der Prozess des Dienstes wurde gestartet, hat sich aber beim Dienststeuerungs-Manager nicht gemeldet</translation>
    </message>
    <message>
        <source>A thread could not be created for the service</source>
        <translation>Für den Dienst konnte kein Thread erstellt werden</translation>
    </message>
    <message>
        <source>The service database is locked</source>
        <translation>Die Dienstdatenbank ist gesperrt</translation>
    </message>
    <message>
        <source>An instance of the service is already running</source>
        <translation>Eine Instanz des Dienstes läuft bereits</translation>
    </message>
    <message>
        <source>The service has been disabled</source>
        <translation>Der Dienst ist deaktiviert</translation>
    </message>
    <message>
        <source>The specified service does not exist</source>
        <translation>Der angegebene Dienst ist nicht vorhanden</translation>
    </message>
    <message>
        <source>The service depends on another service that has failed to start</source>
        <translation>Der Dienst hängt von einem anderen Dienst ab, der nicht gestartet werden konnte</translation>
    </message>
    <message>
        <source>The service could not be logged on. This error occurs if the service was started from an account that does not have the &apos;Log on as a service&apos; right</source>
        <translation>Der Dienst konnte nicht angemeldet werden. Dieser Fehler tritt auf, wenn der Dienst unter einem Konto gestartet wurde, dem das Recht „Anmelden als Dienst“ fehlt</translation>
    </message>
    <message>
        <source>The service depends on a service that does not exist or has been marked for deletion</source>
        <translation>Der Dienst hängt von einem Dienst ab, der nicht vorhanden oder zum Löschen markiert ist</translation>
    </message>
</context>
</TS>
