<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="da_DK" sourcelanguage="en">
<context>
    <name>AdminForm</name>
    <message>
        <source>The window in which you pick the company database. It opens when you click its location or press Browse; what you pick is used when you press OK.</source>
        <translation>Vinduet, hvor du vælger firmadatabasen. Det åbner, når du klikker på dens placering eller trykker på Find; det, du vælger, tages i brug, når du trykker på OK.</translation>
    </message>
    <message>
        <source>Stemp Administration</source>
        <translation>Stemp-administration</translation>
    </message>
    <message>
        <source>The settings of the program. Press OK to accept your changes; Escape, or closing the window by its frame, takes them back. The settings are stored in your own database when the program ends. Your time rows and the company&apos;s jobs are not touched.</source>
        <translation>Programmets indstillinger. Tryk på OK for at godtage dine ændringer; Escape, eller at lukke vinduet i rammen, tager dem tilbage. Indstillingerne gemmes i din egen database, når programmet slutter. Dine tidsrækker og firmaets job berøres ikke.</translation>
    </message>
    <message>
        <source>The name your rows and your state are kept under</source>
        <translation>Navnet, som dine rækker og din status gemmes under</translation>
    </message>
    <message>
        <source>The name under which your time rows are kept and your colleagues see you on the board. It is locked as soon as the program knows who you are. While it is open you may type your initials here; they count from the next start.</source>
        <translation>Navnet, som dine tidsrækker gemmes under, og som dine kolleger ser på tavlen. Det låses, så snart programmet ved, hvem du er. Så længe det er åbent, kan du skrive dine initialer her; de gælder fra næste start.</translation>
    </message>
    <message>
        <source>User Name:</source>
        <translation>Brugernavn:</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>Brugernavn</translation>
    </message>
    <message>
        <source>Show short tips like this one</source>
        <translation>Vis korte tip som dette</translation>
    </message>
    <message>
        <source>Shows a short tip when the mouse rests on a control. Switch it off when you know the program well. The tips themselves stay stored, and the change counts from the next start.</source>
        <translation>Viser et kort tip, når musen hviler på et felt eller en knap. Slå det fra, når du kender programmet godt. Selve tippene bliver gemt, og ændringen gælder fra næste start.</translation>
    </message>
    <message>
        <source>&amp;ToolTips</source>
        <translation>&amp;Værktøjstip</translation>
    </message>
    <message>
        <source>How the hours of a summary are rounded</source>
        <translation>Hvordan timerne i en opgørelse afrundes</translation>
    </message>
    <message>
        <source>Says how the hours of a summary and its timesheet are rounded. Choose what your company settles by. Only the sums are rounded; your time rows keep their exact times.</source>
        <translation>Siger, hvordan timerne i en opgørelse og dens timeseddel afrundes. Vælg det, firmaet afregner efter. Kun summerne afrundes; dine tidsrækker beholder de nøjagtige tider.</translation>
    </message>
    <message>
        <source>Summaries rounded to ...</source>
        <translation>Opgørelser afrundes til ...</translation>
    </message>
    <message>
        <source>Rounds the hours of a summary and its timesheet to quarters of an hour. Choose what your company settles by. Only the sums are rounded; your time rows keep their exact times.</source>
        <translation>Afrunder timerne i en opgørelse og dens timeseddel til kvarterer. Vælg det, firmaet afregner efter. Kun summerne afrundes; dine tidsrækker beholder de nøjagtige tider.</translation>
    </message>
    <message>
        <source>&amp;Quarters  (0.25 h)</source>
        <translation>&amp;Kvarterer  (0,25 t)</translation>
    </message>
    <message>
        <source>Rounds the hours of a summary and its timesheet to half hours. Choose what your company settles by. Only the sums are rounded; your time rows keep their exact times.</source>
        <translation>Afrunder timerne i en opgørelse og dens timeseddel til halve timer. Vælg det, firmaet afregner efter. Kun summerne afrundes; dine tidsrækker beholder de nøjagtige tider.</translation>
    </message>
    <message>
        <source>&amp;Half hours  (0.5 h)</source>
        <translation>&amp;Halve timer  (0,5 t)</translation>
    </message>
    <message>
        <source>Rounds the hours of a summary and its timesheet to whole hours. Choose what your company settles by. Only the sums are rounded; your time rows keep their exact times.</source>
        <translation>Afrunder timerne i en opgørelse og dens timeseddel til hele timer. Vælg det, firmaet afregner efter. Kun summerne afrundes; dine tidsrækker beholder de nøjagtige tider.</translation>
    </message>
    <message>
        <source>&amp;Whole hours</source>
        <translation>He&amp;le timer</translation>
    </message>
    <message>
        <source>A whole number of days; below 1 counts as 7</source>
        <translation>Et helt antal dage; under 1 regnes som 7</translation>
    </message>
    <message>
        <source>The number of days that the grid in the main window looks back. The recent jobs come from the same days. Older rows are not shown but stay in your time database. A change counts from the next start; anything below 1, and what is no number, counts as 7.</source>
        <translation>Det antal dage, som tilbageblikket i hovedvinduet går tilbage. De seneste job kommer fra de samme dage. Ældre rækker vises ikke, men bliver i din tidsdatabase. En ændring gælder fra næste start; alt under 1, og hvad der ikke er et tal, regnes som 7.</translation>
    </message>
    <message>
        <source>Days of history in &apos;Roll-Back&apos; grid</source>
        <translation>Antal dage i &apos;tilbageblikket&apos;</translation>
    </message>
    <message>
        <source>Days of history</source>
        <translation>Antal dage</translation>
    </message>
    <message>
        <source>The settings below matter when you share a company database</source>
        <translation>Indstillingerne herunder har betydning, når I deler en firmadatabase</translation>
    </message>
    <message>
        <source>The settings below this line matter when several people share a company database. If you work alone you can leave them as they are.</source>
        <translation>Indstillingerne under denne linje har betydning, når flere deler en firmadatabase. Arbejder du alene, kan du lade dem være, som de er.</translation>
    </message>
    <message>
        <source>------------------------  Multi User Options --------------------------</source>
        <translation>------------------------  Flerbrugerindstillinger ----------------------</translation>
    </message>
    <message>
        <source>Click, or press F4, to find the company database</source>
        <translation>Klik, eller tryk på F4, for at finde firmadatabasen</translation>
    </message>
    <message>
        <source>The file that holds the company&apos;s job list and the board, usually on a network drive. Click the box, or press F4, to find it, or type the path. A path that names no file is refused and the old one comes back when you press OK. To work alone, choose the program folder&apos;s own Jobs.mdb; an empty box is refused too.</source>
        <translation>Filen med firmaets jobliste og tavlen, som regel på et netværksdrev. Klik i feltet, eller tryk på F4, for at finde den, eller skriv stien. En sti, der ikke peger på en fil, afvises, og den gamle kommer tilbage, når du trykker på OK. Vil du arbejde alene, så vælg programmappens egen Jobs.mdb; et tomt felt afvises også.</translation>
    </message>
    <message>
        <source>Location of shared Company Job List</source>
        <translation>Placering af firmaets fælles jobliste</translation>
    </message>
    <message>
        <source>Location of the company database</source>
        <translation>Firmadatabasens placering</translation>
    </message>
    <message>
        <source>Renew the local job list each time the program ends</source>
        <translation>Forny den lokale jobliste, hver gang programmet slutter</translation>
    </message>
    <message>
        <source>Copies the company&apos;s job list to this machine each time the program ends, so that you can pick jobs when the network is away. It is disabled, and counts as off, where there is nothing to copy: when the list is the program folder&apos;s own Jobs.mdb, when the program folder lies on a network drive, and while no company database is in use. Only the local copy is replaced.</source>
        <translation>Kopierer firmaets jobliste til denne maskine, hver gang programmet slutter, så du kan vælge job, når netværket er væk. Punktet er deaktiveret og regnes som slået fra, hvor der intet er at kopiere: når listen er programmappens egen Jobs.mdb, når programmappen ligger på et netværksdrev, og mens ingen firmadatabase er i brug. Kun den lokale kopi udskiftes.</translation>
    </message>
    <message>
        <source>Auto-&amp;Update local copy of Company Job List</source>
        <translation>A&amp;uto-opdatér lokal kopi af firmaets jobliste</translation>
    </message>
    <message>
        <source>Create company jobs, and delete them with the Delete key</source>
        <translation>Opret firmaets job, og slet dem med Delete-tasten</translation>
    </message>
    <message>
        <source>Lets you create jobs in the company&apos;s list and delete them there with the Delete key. Switch it on only if you look after the list: what you change is changed for all colleagues. Time rows that use a deleted job stay as they are.</source>
        <translation>Lader dig oprette job på firmaets liste og slette dem dér med Delete-tasten. Slå det kun til, hvis du passer listen: Det, du ændrer, ændres for alle kolleger. Tidsrækker, der bruger et slettet job, bliver, som de er.</translation>
    </message>
    <message>
        <source>I can add &amp;Jobs to the Company Data Base</source>
        <translation>Jeg kan tilføje &amp;job i firmadatabasen</translation>
    </message>
    <message>
        <source>Change the status text of a colleague on the board</source>
        <translation>Ret en kollegas statustekst på tavlen</translation>
    </message>
    <message>
        <source>Lets you change the status text of a colleague by clicking it on the board. Use it when you answer the telephone for others. The text is written to the company database, and everybody sees it.</source>
        <translation>Lader dig rette en kollegas statustekst ved at klikke på den på tavlen. Brug det, når du tager telefonen for andre. Teksten skrives i firmadatabasen, og alle ser den.</translation>
    </message>
    <message>
        <source>I can change the &amp;STATUS of others</source>
        <translation>Jeg kan ændre andres &amp;STATUS</translation>
    </message>
    <message>
        <source>Bring the board up when a message comes</source>
        <translation>Hent tavlen frem, når der kommer en besked</translation>
    </message>
    <message>
        <source>Brings the board to the front when a message comes. Switch it off when you do not want to be disturbed: the icon then blinks until you look. Messages are delivered and kept either way.</source>
        <translation>Henter tavlen frem, når der kommer en besked. Slå det fra, når du ikke vil forstyrres: Så blinker ikonet, til du ser efter. Beskeder leveres og gemmes i begge tilfælde.</translation>
    </message>
    <message>
        <source>Auto &amp;PopUp messages</source>
        <translation>Vis beskeder automatisk (&amp;PopUp)</translation>
    </message>
    <message>
        <source>Let your colleagues see on the board what you work on</source>
        <translation>Lad dine kolleger se på tavlen, hvad du arbejder på</translation>
    </message>
    <message>
        <source>Shows your colleagues on the board which job you are stemped in on, and since when. Switch it off to keep that to yourself: your job is taken off the board when you press OK. They still see whether you are in or out, and your time rows stay as they are.</source>
        <translation>Viser dine kolleger på tavlen, hvilket job du er stemplet ind på og siden hvornår. Slå det fra for at holde det for dig selv: Dit job tages af tavlen, når du trykker på OK. De ser stadig, om du er inde eller ude, og dine tidsrækker bliver, som de er.</translation>
    </message>
    <message>
        <source>Show my job to &amp;colleagues</source>
        <translation>Vis mit job for kolle&amp;gerne</translation>
    </message>
    <message>
        <source>Whole seconds from 1 to 60; below 1 counts as 15</source>
        <translation>Hele sekunder fra 1 til 60; under 1 regnes som 15</translation>
    </message>
    <message>
        <source>How often the program looks for new messages and for the state of your colleagues. Fewer seconds show news sooner, more seconds spare a slow network. Anything below 1 counts as 15, anything above 60 as 60. It counts as soon as the window closes.</source>
        <translation>Hvor ofte programmet ser efter nye beskeder og dine kollegers status. Færre sekunder viser nyt hurtigere, flere sekunder skåner et langsomt netværk. Alt under 1 regnes som 15, alt over 60 som 60. Det gælder, så snart vinduet lukkes.</translation>
    </message>
    <message>
        <source>Seconds between message updates</source>
        <translation>Sekunder mellem opdatering af beskeder</translation>
    </message>
    <message>
        <source>Seconds between updates</source>
        <translation>Sekunder mellem opdateringer</translation>
    </message>
    <message>
        <source>Some changes will require a program restart</source>
        <translation>Nogle ændringer kræver, at programmet genstartes</translation>
    </message>
    <message>
        <source>Accepts the settings and closes the window. Tool tips and the days in the grid count later, as their own help says; all others count at once. The settings are stored when the program ends.</source>
        <translation>Godtager indstillingerne og lukker vinduet. Værktøjstip og antal dage i tilbageblikket gælder senere, som deres egen hjælp siger; alle andre gælder straks. Indstillingerne gemmes, når programmet slutter.</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Find the company database</source>
        <translation>Find firmadatabasen</translation>
    </message>
    <message>
        <source>Opens the window in which you pick the company database. What you pick is used when you press OK.</source>
        <translation>Åbner vinduet, hvor du vælger firmadatabasen. Det, du vælger, tages i brug, når du trykker på OK.</translation>
    </message>
    <message>
        <source>&amp;Browse ...</source>
        <translation>&amp;Find ...</translation>
    </message>
    <message>
        <source>Whether the file named above serves</source>
        <translation>Om filen ovenfor kan bruges</translation>
    </message>
    <message>
        <source>Says what the program found at the location above, as soon as you type or pick it: how many people and jobs the company database holds, or why the file does not serve. Nothing is used before you press OK.</source>
        <translation>Siger, hvad programmet fandt på placeringen ovenfor, så snart du skriver eller vælger den: hvor mange personer og job firmadatabasen har, eller hvorfor filen ikke kan bruges. Intet tages i brug, før du trykker på OK.</translation>
    </message>
    <message>
        <source>Not looked at yet</source>
        <translation>Endnu ikke undersøgt</translation>
    </message>
</context>
<context>
    <name>CreateJob</name>
    <message>
        <source>Create Job</source>
        <translation>Opret job</translation>
    </message>
    <message>
        <source>Creates jobs in the company&apos;s job list, or in your own list when you have no company database. Type an ID and, if you like, a description, and press Apply or OK. Time rows and your personal list are not touched; your colleagues see a new job at their next look at the company database.</source>
        <translation>Opretter job på firmaets jobliste, eller på din egen liste, når du ikke har nogen firmadatabase. Skriv et id og eventuelt en beskrivelse, og tryk på Anvend eller OK. Tidsrækker og din personlige liste berøres ikke; dine kolleger ser et nyt job, næste gang de ser efter i firmadatabasen.</translation>
    </message>
    <message>
        <source>Enter unique Job ID here</source>
        <translation>Skriv et entydigt job-id her</translation>
    </message>
    <message>
        <source>The number or short name by which the job is known. No two jobs may have the same one, in capital or small letters; a colon becomes a blank. After a number has been stored, the next number is suggested. Nothing is stored before you press Apply or OK.</source>
        <translation>Det nummer eller korte navn, som jobbet kendes under. To job må ikke have det samme, hverken med store eller små bogstaver; et kolon bliver til et mellemrum. Når et nummer er gemt, foreslås det næste. Intet gemmes, før du trykker på Anvend eller OK.</translation>
    </message>
    <message>
        <source>Job ID</source>
        <translation>Job-id</translation>
    </message>
    <message>
        <source>Enter Job description, if you like</source>
        <translation>Skriv en beskrivelse af jobbet, hvis du vil</translation>
    </message>
    <message>
        <source>What the job is about, as your colleagues will read it in the list beside the ID. Leave it empty when the ID says enough: the ID is then stored as the description too. Nothing is stored before you press Apply or OK.</source>
        <translation>Hvad jobbet går ud på, som dine kolleger læser det på listen ved siden af id&apos;et. Lad feltet være tomt, når id&apos;et siger nok: Så gemmes id&apos;et også som beskrivelse. Intet gemmes, før du trykker på Anvend eller OK.</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beskrivelse</translation>
    </message>
    <message>
        <source>The IDs of the jobs you have created</source>
        <translation>Id&apos;erne på de job, du har oprettet</translation>
    </message>
    <message>
        <source>Shows the jobs that you have created since the window was opened, the newest last: on the left the IDs, on the right their descriptions. Use the lists to check what was stored. Nothing can be changed here; a wrong job is deleted from the full list in the main window.</source>
        <translation>Viser de job, du har oprettet, siden vinduet blev åbnet, det nyeste nederst: til venstre id&apos;erne, til højre beskrivelserne. Brug listerne til at se efter, hvad der blev gemt. Der kan ikke ændres noget her; et forkert job slettes fra hele listen i hovedvinduet.</translation>
    </message>
    <message>
        <source>IDs of the created jobs</source>
        <translation>De oprettede jobs id&apos;er</translation>
    </message>
    <message>
        <source>The descriptions of the jobs you have created</source>
        <translation>Beskrivelserne af de job, du har oprettet</translation>
    </message>
    <message>
        <source>Descriptions of the created jobs</source>
        <translation>De oprettede jobs beskrivelser</translation>
    </message>
    <message>
        <source>Store the job and go on with the next</source>
        <translation>Gem jobbet, og fortsæt med det næste</translation>
    </message>
    <message>
        <source>Stores the job in the company&apos;s job list and leaves the window open. Use it when you have several jobs to create: the boxes are made ready for the next one. An ID that is used already is refused. No time rows are touched.</source>
        <translation>Gemmer jobbet på firmaets jobliste og lader vinduet stå åbent. Brug knappen, når du vil oprette flere job: Felterne gøres klar til det næste. Et id, der allerede er brugt, afvises. Ingen tidsrækker berøres.</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Anvend</translation>
    </message>
    <message>
        <source>Store the job and close the window</source>
        <translation>Gem jobbet, og luk vinduet</translation>
    </message>
    <message>
        <source>Stores the job in the company&apos;s job list and closes the window. Use it for the only or the last job; Enter does the same. The window stays open when the job could not be stored. No time rows are touched.</source>
        <translation>Gemmer jobbet på firmaets jobliste og lukker vinduet. Brug knappen til det eneste eller det sidste job; Enter gør det samme. Vinduet bliver stående, når jobbet ikke kunne gemmes. Ingen tidsrækker berøres.</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Close the window without storing</source>
        <translation>Luk vinduet uden at gemme</translation>
    </message>
    <message>
        <source>Closes the window without storing what stands in the boxes; Escape does the same. Use it when all your jobs are in the lists below. Jobs that were stored before stay stored.</source>
        <translation>Lukker vinduet uden at gemme det, der står i felterne; Escape gør det samme. Brug knappen, når alle dine job står på listerne. Job, der allerede er gemt, forbliver gemt.</translation>
    </message>
    <message>
        <source>&amp;Exit</source>
        <translation>&amp;Luk</translation>
    </message>
    <message>
        <source>Why the job is not stored yet</source>
        <translation>Hvorfor jobbet ikke er gemt endnu</translation>
    </message>
    <message>
        <source>Tells you when the job list could not be written or does not answer. What you typed stays in the boxes, so that you can try again. It is empty while all is well.</source>
        <translation>Fortæller, når joblisten ikke kunne skrives eller ikke svarer. Det, du har skrevet, bliver i felterne, så du kan prøve igen. Den er tom, så længe alt er i orden.</translation>
    </message>
    <message>
        <source>State of the storing</source>
        <translation>Hvordan det går med at gemme</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>Stemp Help</source>
        <translation>Stemp-hjælp</translation>
    </message>
    <message>
        <source>Shows what the control that you asked about does. Press F1 on any control, or Shift+F1 for its whole window; the window you work in keeps the keys, and the next F1 changes the text here. Escape in this window closes it, and it opens next time where you left it.

Ctrl+E lets you change any window but the one that asks for initials: it turns light grey, and a click on a control edits its text, its place and its size until Escape ends it. Whatever went wrong, Ctrl+Shift+Backspace asks and then puts the shipped layout and texts of a window back. Any window but this one can also be moved by a bare spot of its surface.</source>
        <translation>Viser, hvad det felt, du spurgte om, gør. Tryk F1 på et hvilket som helst felt eller Shift+F1 for hele dets vindue; vinduet, du arbejder i, beholder tastaturet, og næste F1 skifter teksten her. Escape i dette vindue lukker det, og næste gang åbner det, hvor du forlod det.

Ctrl+E lader dig ændre ethvert vindue undtagen det, der spørger om initialer: det bliver lysegråt, og et klik på et felt redigerer dets tekst, plads og størrelse, indtil Escape afslutter det. Hvad der end gik galt, spørger Ctrl+Shift+Backspace og genskaber så vinduets oprindelige opstilling og tekster. Ethvert vindue undtagen dette kan også flyttes med et tomt sted på sin flade.</translation>
    </message>
    <message>
        <source>The help of the control that you asked about</source>
        <translation>Hjælpen til det felt, du spurgte om</translation>
    </message>
    <message>
        <source>The help of the control or window on which you pressed F1 last. You can scroll it, and select and copy from it, but not change it here. Press F1 on another control and its help takes this place.</source>
        <translation>Hjælpen til det felt eller vindue, hvor du sidst trykkede F1. Du kan rulle i den og markere og kopiere fra den, men ikke ændre den her. Tryk F1 på et andet felt, og dets hjælp vises her i stedet.</translation>
    </message>
    <message>
        <source>Help text</source>
        <translation>Hjælpetekst</translation>
    </message>
    <message>
        <source>Ctrl+E changes texts and places in this window (Escape ends it), and Ctrl+Shift+Backspace puts the shipped ones back.</source>
        <translation>Ctrl+E ændrer tekster og pladser i dette vindue (Escape afslutter), og Ctrl+Shift+Backspace genskaber de oprindelige.</translation>
    </message>
</context>
<context>
    <name>IOQuery</name>
    <message>
        <source>You are stemped IN!</source>
        <translation>Du er stemplet IND!</translation>
    </message>
    <message>
        <source>You are still stemped in on a job. Say here what is to happen with the open row: it stays open, it ends at a time that you type, or it ends now. Closing this window by its frame carries out what is selected, and so does Escape at the start; when you close the program, Escape keeps it open.</source>
        <translation>Du er stadig stemplet ind på et job. Sig her, hvad der skal ske med den åbne række: Den forbliver åben, den slutter på et tidspunkt, du skriver, eller den slutter nu. Lukker du dette vindue i rammen, udføres det, der er valgt, og det samme gør Escape ved starten; når du lukker programmet, holder Escape det åbent.</translation>
    </message>
    <message>
        <source>The job you are stemped in on</source>
        <translation>Jobbet, du er stemplet ind på</translation>
    </message>
    <message>
        <source>Shows the job of the row that is still open: its number and its name. The row was begun when you stemped in on that job. Nothing can be changed here.</source>
        <translation>Viser jobbet for den række, der stadig er åben: nummer og navn. Rækken blev begyndt, da du stemplede ind på jobbet. Der kan ikke ændres noget her.</translation>
    </message>
    <message>
        <source>Open job</source>
        <translation>Åbent job</translation>
    </message>
    <message>
        <source>When you stemped in, and how long ago that is</source>
        <translation>Hvornår du stemplede ind, og hvor længe det er siden</translation>
    </message>
    <message>
        <source>Tells when you stemped in on the job above, and how long the row has been open since. A row of yesterday or of a holiday is one that you forgot to end. Nothing can be changed here.</source>
        <translation>Fortæller, hvornår du stemplede ind på jobbet ovenfor, og hvor længe rækken har været åben siden. En række fra i går eller fra en feriedag er en, du har glemt at afslutte. Der kan ikke ændres noget her.</translation>
    </message>
    <message>
        <source>Since when you are stemped in</source>
        <translation>Hvor længe du har været stemplet ind</translation>
    </message>
    <message>
        <source>Keep the row open and go on</source>
        <translation>Behold rækken åben, og fortsæt</translation>
    </message>
    <message>
        <source>Keeps the row open, so that the time goes on running, also while the program is closed. Choose it when you are still at work on this job. One click, Space or Enter acts at once and closes the window; the arrow keys only select.</source>
        <translation>Holder rækken åben, så tiden løber videre, også mens programmet er lukket. Vælg den, når du stadig arbejder på jobbet. Et klik, mellemrum eller Enter virker straks og lukker vinduet; piletasterne vælger kun.</translation>
    </message>
    <message>
        <source>Remain stemped in</source>
        <translation>Forbliv stemplet ind</translation>
    </message>
    <message>
        <source>Stemp out at the time in the box</source>
        <translation>Stempl ud på tidspunktet i feltet</translation>
    </message>
    <message>
        <source>Ends the row at the time that stands in the box. Choose it when you forgot to stemp out. It only selects: type the time and press OK. A time in the future or before you stemped in is taken after a warning.</source>
        <translation>Afslutter rækken på det tidspunkt, der står i feltet. Vælg den, når du har glemt at stemple ud. Den vælger kun: Skriv tidspunktet, og tryk på OK. Et tidspunkt i fremtiden eller før du stemplede ind godtages efter en advarsel.</translation>
    </message>
    <message>
        <source>Stemp out at:</source>
        <translation>Stempl ud kl.:</translation>
    </message>
    <message>
        <source>Date and time to stemp out at, or just a time of today</source>
        <translation>Dato og tid for udstemplingen, eller blot et klokkeslæt i dag</translation>
    </message>
    <message>
        <source>The time at which the row is to end; it is filled with the present date and time. Type a date and time as your computer writes them, or only a time such as 8:30, 0830 or 8.30 for today. Typing here selects &quot;Stemp out at:&quot;; nothing is written before you press OK.</source>
        <translation>Tidspunktet, hvor rækken skal slutte; feltet er udfyldt med dato og tid lige nu. Skriv dato og tid, som din computer skriver dem, eller kun et klokkeslæt som 8:30, 0830 eller 8.30 for i dag. Når du skriver her, vælges &quot;Stempl ud kl.:&quot;; intet skrives, før du trykker på OK.</translation>
    </message>
    <message>
        <source>Time to stemp out at</source>
        <translation>Tidspunkt for udstempling</translation>
    </message>
    <message>
        <source>Confirms &quot;Stemp out at:&quot;: the row ends at the time in the box and the window closes. If one of the other two choices is selected, the button first selects &quot;Stemp out at:&quot; and the window stays, so that you can look at the time.</source>
        <translation>Bekræfter &quot;Stempl ud kl.:&quot;: Rækken slutter på tidspunktet i feltet, og vinduet lukkes. Er et af de to andre valg markeret, vælger knappen først &quot;Stempl ud kl.:&quot;, og vinduet bliver stående, så du kan se på tidspunktet.</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Stemp out with the present time</source>
        <translation>Stempl ud med tiden lige nu</translation>
    </message>
    <message>
        <source>Ends the row with the present time. Choose it when you are leaving now. One click, Space or Enter acts at once and closes the window; the arrow keys only select.</source>
        <translation>Afslutter rækken med tiden lige nu. Vælg den, når du går nu. Et klik, mellemrum eller Enter virker straks og lukker vinduet; piletasterne vælger kun.</translation>
    </message>
    <message>
        <source>Stemp out now</source>
        <translation>Stempl ud nu</translation>
    </message>
    <message>
        <source>Keep the program open and change nothing</source>
        <translation>Hold programmet åbent, og ændr intet</translation>
    </message>
    <message>
        <source>Takes the closing of the program back: you stay stemped in, no choice is carried out and nothing is written. Press it, or Escape, when you closed the program by mistake. It is there only when you close the program.</source>
        <translation>Fortryder lukningen af programmet: Du forbliver stemplet ind, intet valg udføres, og intet skrives. Tryk på den, eller på Escape, når du har lukket programmet ved en fejl. Den er der kun, når du lukker programmet.</translation>
    </message>
    <message>
        <source>&amp;Don&apos;t close</source>
        <translation>&amp;Luk ikke</translation>
    </message>
</context>
<context>
    <name>Message</name>
    <message>
        <source>Message</source>
        <translation>Besked</translation>
    </message>
    <message>
        <source>Write a short message to a colleague or to all of them. It is put into the list of waiting messages and goes out when this window is closed; your colleague sees it in yellow on the board. Below stand the messages that you received and sent lately.</source>
        <translation>Skriv en kort besked til en kollega eller til dem alle. Den lægges på listen over ventende beskeder og sendes, når vinduet lukkes; din kollega ser den med gult på tavlen. Nederst står de beskeder, du har modtaget og sendt for nylig.</translation>
    </message>
    <message>
        <source>Whom the message is for</source>
        <translation>Hvem beskeden er til</translation>
    </message>
    <message>
        <source>Choose a colleague&apos;s name, or type it in capital or small letters. All means every colleague on the board but yourself. A name that is not on the board is not taken; nothing is sent by choosing.</source>
        <translation>Vælg en kollegas navn, eller skriv det med store eller små bogstaver. All betyder alle kolleger på tavlen undtagen dig selv. Et navn, der ikke står på tavlen, tages ikke imod; der sendes intet ved at vælge.</translation>
    </message>
    <message>
        <source>&amp;To:</source>
        <translation>&amp;Til:</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Til</translation>
    </message>
    <message>
        <source>Type your message here</source>
        <translation>Skriv din besked her</translation>
    </message>
    <message>
        <source>The text of the message, on one line. The day and the time are put before it when you send it, so that your colleague sees when you wrote it. Below the box you see how many more characters there is room for.</source>
        <translation>Beskedens tekst på én linje. Dag og klokkeslæt sættes foran, når du sender den, så din kollega kan se, hvornår du skrev den. Under feltet ser du, hvor mange tegn der er plads til endnu.</translation>
    </message>
    <message>
        <source>&amp;Message:</source>
        <translation>&amp;Besked:</translation>
    </message>
    <message>
        <source>Text of the message</source>
        <translation>Beskedens tekst</translation>
    </message>
    <message>
        <source>Room that is left in the message</source>
        <translation>Plads, der er tilbage i beskeden</translation>
    </message>
    <message>
        <source>Counts the characters that the message can still take. A message has 90 characters at most, and the day and the time before it take some of them. At 0 nothing more can be typed.</source>
        <translation>Tæller de tegn, beskeden endnu har plads til. En besked har højst 90 tegn, og dagen og klokkeslættet foran den optager nogle af dem. Ved 0 kan der ikke skrives mere.</translation>
    </message>
    <message>
        <source>Characters left</source>
        <translation>Tegn tilbage</translation>
    </message>
    <message>
        <source>What became of your message</source>
        <translation>Hvad der blev af din besked</translation>
    </message>
    <message>
        <source>Tells you for whom your message is ready, or why it could not be taken. A text that could not be taken stays in its box, so that you can try again. It is empty until you send or store something.</source>
        <translation>Fortæller, hvem din besked er klar til, eller hvorfor den ikke kunne tages imod. En tekst, der ikke kunne tages imod, bliver i sit felt, så du kan prøve igen. Den er tom, indtil du sender eller gemmer noget.</translation>
    </message>
    <message>
        <source>Result of sending</source>
        <translation>Resultatet af at sende</translation>
    </message>
    <message>
        <source>Send the message and leave the window open</source>
        <translation>Send beskeden, og lad vinduet være åbent</translation>
    </message>
    <message>
        <source>Puts the message into the list of waiting messages and leaves the window open, so that you can write another one. All waiting messages go out when the window is closed. Pressed twice, it sends the message twice.</source>
        <translation>Lægger beskeden på listen over ventende beskeder og lader vinduet være åbent, så du kan skrive en til. Alle ventende beskeder sendes, når vinduet lukkes. Trykkes der to gange, sendes beskeden to gange.</translation>
    </message>
    <message>
        <source>&amp;Send</source>
        <translation>&amp;Send</translation>
    </message>
    <message>
        <source>Send the message and close the window</source>
        <translation>Send beskeden, og luk vinduet</translation>
    </message>
    <message>
        <source>Sends the message and closes the window; Enter does the same. If you have pressed Send and changed nothing since, the message is not sent again. If the text is empty, the window just closes.</source>
        <translation>Sender beskeden og lukker vinduet; Enter gør det samme. Har du trykket på Send og intet ændret siden, sendes beskeden ikke igen. Er teksten tom, lukkes vinduet blot.</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Close the window without sending the text</source>
        <translation>Luk vinduet uden at sende teksten</translation>
    </message>
    <message>
        <source>Closes the window and forgets the text in the box; Escape does the same. Messages that wait in the list below stay there and go out.</source>
        <translation>Lukker vinduet og glemmer teksten i feltet; Escape gør det samme. Beskeder, der venter på listen nedenunder, bliver der og sendes.</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuller</translation>
    </message>
    <message>
        <source>Messages that wait to be sent; type to change a cell, press Delete to delete a row</source>
        <translation>Beskeder, der venter på at blive sendt; skriv for at ændre en celle, tryk på Delete for at slette en række</translation>
    </message>
    <message>
        <source>Shows the messages that wait to be sent; they go out when the window is closed. Type in a cell, or double-click it, to change it: Enter keeps the change, Escape drops it. Press Delete to delete the chosen row. Use the empty row for a further message. A text without a name beside it is never sent, so you can keep it here for later.</source>
        <translation>Viser de beskeder, der venter på at blive sendt; de sendes, når vinduet lukkes. Skriv i en celle, eller dobbeltklik på den, for at ændre den: Enter beholder ændringen, Escape kasserer den. Tryk på Delete for at slette den valgte række. Brug den tomme række til endnu en besked. En tekst uden et navn ved siden af sendes aldrig, så du kan gemme den her til senere.</translation>
    </message>
    <message>
        <source>&amp;Waiting to be sent:</source>
        <translation>&amp;Venter på at blive sendt:</translation>
    </message>
    <message>
        <source>Waiting to be sent</source>
        <translation>Venter på at blive sendt</translation>
    </message>
    <message>
        <source>What you received and sent lately, the newest at the top</source>
        <translation>Hvad du har modtaget og sendt for nylig, det nyeste øverst</translation>
    </message>
    <message>
        <source>Shows the last 200 messages that you received or that were sent, each with the day and time when that happened. A message to several colleagues is one row, with the number of those it has reached. A message that you cleared from the board can be read again here. Nothing can be changed; Ctrl+C copies the chosen row.</source>
        <translation>Viser de sidste 200 beskeder, du har modtaget, eller som er sendt, hver med dag og klokkeslæt for, hvornår det skete. En besked til flere kolleger er én række, med antallet af dem, den har nået. En besked, du har fjernet fra tavlen, kan læses igen her. Intet kan ændres; Ctrl+C kopierer den valgte række.</translation>
    </message>
    <message>
        <source>&amp;Received and sent:</source>
        <translation>&amp;Modtaget og sendt:</translation>
    </message>
    <message>
        <source>Received and sent</source>
        <translation>Modtaget og sendt</translation>
    </message>
    <message>
        <source>Fetches the messages that wait to be sent from your own database for the grid, and stores there what you type in it. It is not seen. Messages that were sent or received are never changed by it.</source>
        <translation>Henter de beskeder, der venter på at blive sendt, fra din egen database til tabellen og gemmer der, hvad du skriver i den. Den ses ikke. Beskeder, der er sendt eller modtaget, ændres aldrig af den.</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Tid</translation>
    </message>
    <message>
        <source>From/To</source>
        <translation>Fra/til</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Navn</translation>
    </message>
</context>
<context>
    <name>Messages</name>
    <message>
        <source>The program writes this text itself: what you type stays until it writes the text again.</source>
        <translation>Programmet skriver selv denne tekst: Det, du skriver, bliver stående, til programmet skriver teksten igen.</translation>
    </message>
    <message>
        <source>The file
%1
could not be made: its template &quot;%2&quot; is missing in the program folder, or you may not read it. Please install the program again.</source>
        <translation>Filen
%1
kunne ikke laves: Dens skabelon &quot;%2&quot; mangler i programmappen, eller du må ikke læse den. Installér programmet igen.</translation>
    </message>
    <message>
        <source>The file
%1
could not be made: its template &quot;%2&quot; is damaged. Please install the program again.</source>
        <translation>Filen
%1
kunne ikke laves: Dens skabelon &quot;%2&quot; er beskadiget. Installér programmet igen.</translation>
    </message>
    <message>
        <source>The file
%1
could not be made: the disk is full. Please make room on it.</source>
        <translation>Filen
%1
kunne ikke laves: Disken er fuld. Skaf plads på den.</translation>
    </message>
    <message>
        <source>The file
%1
could not be made: you may not write in this folder. Please ask for the right to do so.</source>
        <translation>Filen
%1
kunne ikke laves: Du må ikke skrive i denne mappe. Bed om ret til det.</translation>
    </message>
    <message>
        <source>The file
%1
could not be made: its drive does not work as it should.</source>
        <translation>Filen
%1
kunne ikke laves: Dens drev virker ikke, som det skal.</translation>
    </message>
    <message>
        <source>The file %1 is damaged.</source>
        <translation>Filen %1 er beskadiget.</translation>
    </message>
    <message>
        <source>The file
%1
cannot be written: the disk is full. Make room on it and start again.</source>
        <translation>Filen
%1
kan ikke skrives: Disken er fuld. Skaf plads på den og start igen.</translation>
    </message>
    <message>
        <source>The file
%1
cannot be written: you may not write to it, or not in its folder. Please ask for the right to do both.</source>
        <translation>Filen
%1
kan ikke skrives: Du må ikke skrive i den eller ikke i dens mappe. Bed om ret til begge dele.</translation>
    </message>
    <message>
        <source>The file
%1
cannot be read or written: its drive does not work as it should.</source>
        <translation>Filen
%1
kan ikke læses eller skrives: Dens drev virker ikke, som det skal.</translation>
    </message>
    <message>
        <source>The file
%1
is not there. Please start again.</source>
        <translation>Filen
%1
er der ikke. Start igen.</translation>
    </message>
    <message>
        <source>Where the program keeps its file
%1
there is a folder of that name. Please rename it.</source>
        <translation>Hvor programmet har sin fil
%1
ligger der en mappe med det navn. Giv den et andet navn.</translation>
    </message>
    <message>
        <source>The template &quot;%1&quot; is damaged or missing. The file was made without it; please install the program again.</source>
        <translation>Skabelonen &quot;%1&quot; er beskadiget eller mangler. Filen blev lavet uden den; installér programmet igen.</translation>
    </message>
    <message>
        <source>The file
%1
lacks tables, and they could not be made. Some of your jobs, notes or messages cannot be kept.</source>
        <translation>Filen
%1
mangler tabeller, og de kunne ikke laves. Nogle af dine job, noter eller beskeder kan ikke gemmes.</translation>
    </message>
    <message>
        <source>personal jobs</source>
        <translation>personlige job</translation>
    </message>
    <message>
        <source>notes</source>
        <translation>noter</translation>
    </message>
    <message>
        <source>messages to be sent</source>
        <translation>beskeder, der skal sendes</translation>
    </message>
    <message>
        <source>messages</source>
        <translation>beskeder</translation>
    </message>
    <message>
        <source>status texts</source>
        <translation>statustekster</translation>
    </message>
    <message>
        <source>windows with their texts, places and settings: %1</source>
        <translation>vinduer med deres tekster, pladser og indstillinger: %1</translation>
    </message>
    <message>
        <source>jobs: %1</source>
        <translation>job: %1</translation>
    </message>
    <message>
        <source>people: %1</source>
        <translation>personer: %1</translation>
    </message>
    <message>
        <source>Nothing in it could be read.</source>
        <translation>Intet i den kunne læses.</translation>
    </message>
    <message>
        <source>What could still be read came along: %1.</source>
        <translation>Hvad der endnu kunne læses, kom med: %1.</translation>
    </message>
    <message>
        <source>The job list
%1
is damaged, or belongs to another program.</source>
        <translation>Joblisten
%1
er beskadiget eller hører til et andet program.</translation>
    </message>
    <message>
        <source>%1

Do you want it set aside and a new one made? What can still be read of it comes along.</source>
        <translation>%1

Skal den lægges til side og en ny laves? Hvad der endnu kan læses i den, kommer med.</translation>
    </message>
    <message>
        <source>The drive of
%1
does not answer.</source>
        <translation>Drevet med
%1
svarer ikke.</translation>
    </message>
    <message>
        <source>The file
%1
is not used as the company database: %2. The job list is now the one in the program folder.</source>
        <translation>Filen
%1
bruges ikke som firmadatabase: %2. Joblisten er nu den i programmappen.</translation>
    </message>
    <message>
        <source>The file that the settings name as the company database is not used: %1.</source>
        <translation>Filen, som indstillingerne nævner som firmadatabase, bruges ikke: %1.</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>det er en mappe</translation>
    </message>
    <message>
        <source>it is no database, or is damaged</source>
        <translation>det er ingen database, eller den er beskadiget</translation>
    </message>
    <message>
        <source>it is a database of another program</source>
        <translation>det er en database fra et andet program</translation>
    </message>
    <message>
        <source>it is not there, or you may not read it</source>
        <translation>den er der ikke, eller du må ikke læse den</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>den kan ikke læses</translation>
    </message>
    <message>
        <source>its drive does not let programs lock files, as some network drives do. If this goes on, move the file to a drive of another kind, or have the network drive set up with file locking.</source>
        <translation>lader dens drev ikke programmer låse filer, som nogle netværksdrev gør. Bliver det ved, så flyt filen til et drev af en anden slags, eller få netværksdrevet sat op med fillåsning.</translation>
    </message>
    <message>
        <source>another program keeps the company database locked.</source>
        <translation>et andet program holder firmadatabasen låst.</translation>
    </message>
    <message>
        <source>the company database is damaged. Please have it restored.</source>
        <translation>firmadatabasen er beskadiget. Få den genskabt.</translation>
    </message>
    <message>
        <source>the company database is not there, or its drive is away.</source>
        <translation>firmadatabasen er ikke på sin plads, eller dens drev er væk.</translation>
    </message>
    <message>
        <source>the company database does not answer.</source>
        <translation>firmadatabasen svarer ikke.</translation>
    </message>
    <message>
        <source>The company database is not there.</source>
        <translation>Firmadatabasen er ikke på sin plads.</translation>
    </message>
    <message>
        <source> Colleagues are shown as they were known last.</source>
        <translation> Kolleger vises, som de sidst var kendt.</translation>
    </message>
    <message>
        <source>Cannot open %1 (Error:%2)</source>
        <translation>Kan ikke åbne %1 (Fejl:%2)</translation>
    </message>
    <message>
        <source>Cannot run the program!</source>
        <translation>Programmet kan ikke køre!</translation>
    </message>
    <message>
        <source>Check shortcut &apos;Start In&apos; (must point to location of %1.EXE)</source>
        <translation>Se efter i genvejens &apos;Start i&apos; (skal pege på mappen med %1.EXE)</translation>
    </message>
    <message>
        <source>This text is not in the list. Choose one from it first.</source>
        <translation>Denne tekst står ikke på listen. Vælg først en fra den.</translation>
    </message>
    <message>
        <source>The text was not removed, because your database could not be written. Please try again.</source>
        <translation>Teksten blev ikke fjernet, fordi din database ikke kunne skrives. Prøv igen.</translation>
    </message>
    <message>
        <source>Removed from the list.</source>
        <translation>Fjernet fra listen.</translation>
    </message>
    <message>
        <source>1 more message waits behind this one</source>
        <translation>1 besked mere venter bag denne</translation>
    </message>
    <message>
        <source>%1 more messages wait behind this one</source>
        <translation>%1 beskeder mere venter bag denne</translation>
    </message>
    <message>
        <source>Nothing heard since %1</source>
        <translation>Intet hørt siden %1</translation>
    </message>
    <message>
        <source>Stemped in on %1</source>
        <translation>Stemplet ind på %1</translation>
    </message>
    <message>
        <source>Stemped in since %1 on %2</source>
        <translation>Stemplet ind siden %1 på %2</translation>
    </message>
    <message>
        <source>(too large, row %1)</source>
        <translation>(for stor, række %1)</translation>
    </message>
    <message>
        <source>%1 The new status of %2 waits here and is written as soon as that is possible.</source>
        <translation>%1 Den nye status for %2 venter her og skrives, så snart det kan lade sig gøre.</translation>
    </message>
    <message>
        <source>(unknown)</source>
        <translation>(ukendt)</translation>
    </message>
    <message>
        <source>(too large to be read)</source>
        <translation>(for stor til at blive læst)</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>og %1 til</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no date and time.

Type it like %2, or only a time of today like 8:30.</source>
        <translation>&quot;%1&quot; er ikke en dato og et klokkeslæt.

Skriv det som %2, eller kun et klokkeslæt i dag som 8:30.</translation>
    </message>
    <message>
        <source>%1 rows</source>
        <translation>%1 rækker</translation>
    </message>
    <message>
        <source>%1 %2 to %3</source>
        <translation>%1 %2 til %3</translation>
    </message>
    <message>
        <source>Load &apos;%1&apos; properties from DATABASE?</source>
        <translation>Hent egenskaberne for &apos;%1&apos; fra DATABASEN?</translation>
    </message>
    <message>
        <source>Save &apos;%1&apos; properties to DATABASE?</source>
        <translation>Gem egenskaberne for &apos;%1&apos; i DATABASEN?</translation>
    </message>
    <message>
        <source>Print Preview: %1</source>
        <translation>Udskriftsvisning: %1</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Fra</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Til</translation>
    </message>
    <message>
        <source>since %1</source>
        <translation>siden %1</translation>
    </message>
    <message>
        <source>less than a minute</source>
        <translation>under et minut</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 t %2 min</translation>
    </message>
    <message>
        <source>1 day</source>
        <translation>1 dag</translation>
    </message>
    <message>
        <source>%1 days</source>
        <translation>%1 dage</translation>
    </message>
    <message>
        <source>Are you sure you want to DELETE user :%1</source>
        <translation>Er du sikker på, at du vil SLETTE brugeren :%1</translation>
    </message>
    <message>
        <source>%1 could not be deleted, because the company database is locked, write-protected or not there. Please try again.</source>
        <translation>%1 kunne ikke slettes, fordi firmadatabasen er låst, skrivebeskyttet eller ikke på sin plads. Prøv igen.</translation>
    </message>
    <message>
        <source>The company database is not there, so nobody would see the change. Please try again when it is back.</source>
        <translation>Firmadatabasen er ikke på sin plads, så ingen ville se ændringen. Prøv igen, når den er tilbage.</translation>
    </message>
    <message>
        <source>Message: </source>
        <translation>Besked: </translation>
    </message>
    <message>
        <source>Not among the users</source>
        <translation>Ikke blandt brugerne</translation>
    </message>
    <message>
        <source>Stemped in</source>
        <translation>Stemplet ind</translation>
    </message>
    <message>
        <source>Stemped out</source>
        <translation>Stemplet ud</translation>
    </message>
    <message>
        <source>Program closed</source>
        <translation>Programmet er lukket</translation>
    </message>
    <message>
        <source>Its drive is full. Make room on it.</source>
        <translation>Dens drev er fuldt. Gør plads på det.</translation>
    </message>
    <message>
        <source>The file or its folder is write-protected for you. Ask for the right to write in the folder, too.</source>
        <translation>Filen eller dens mappe er skrivebeskyttet for dig. Bed om ret til at skrive også i mappen.</translation>
    </message>
    <message>
        <source>Either another program keeps it locked, or </source>
        <translation>Enten holder et andet program den låst, eller </translation>
    </message>
    <message>
        <source>Perhaps </source>
        <translation>Måske </translation>
    </message>
    <message>
        <source>Not current since %1: </source>
        <translation>Ikke aktuel siden %1: </translation>
    </message>
    <message>
        <source>Not current: </source>
        <translation>Ikke aktuel: </translation>
    </message>
    <message>
        <source>The company database can be read, but not written. Your state and your messages wait here.</source>
        <translation>Firmadatabasen kan læses, men ikke skrives. Din tilstand og dine beskeder venter her.</translation>
    </message>
    <message>
        <source>The company database
%1
can be read, but not written. %2

Until then you see your colleagues, but they do not see you, and your messages wait on this machine.</source>
        <translation>Firmadatabasen
%1
kan læses, men ikke skrives. %2

Indtil da ser du dine kolleger, men de ser ikke dig, og dine beskeder venter på denne maskine.</translation>
    </message>
    <message>
        <source>Ready for %1. It goes out when you close this window.</source>
        <translation>Klar til %1. Den sendes, når du lukker dette vindue.</translation>
    </message>
    <message>
        <source>The text is too long. What did not fit was left out; please check its end.</source>
        <translation>Teksten er for lang. Det, der ikke var plads til, er udeladt; se efter i slutningen.</translation>
    </message>
    <message>
        <source>The message is not sent yet.</source>
        <translation>Beskeden er ikke sendt endnu.</translation>
    </message>
    <message>
        <source>&amp;Back to the message</source>
        <translation>&amp;Tilbage til beskeden</translation>
    </message>
    <message>
        <source>&amp;Discard it</source>
        <translation>&amp;Kassér den</translation>
    </message>
    <message>
        <source>Type a message first.</source>
        <translation>Skriv en besked først.</translation>
    </message>
    <message>
        <source>Characters left: %1</source>
        <translation>Tegn tilbage: %1</translation>
    </message>
    <message>
        <source>The message was not sent, because your database could not be written. Please try again.</source>
        <translation>Beskeden blev ikke sendt, fordi din database ikke kunne skrives. Prøv igen.</translation>
    </message>
    <message>
        <source>%1 colleagues</source>
        <translation>%1 kolleger</translation>
    </message>
    <message>
        <source>Choose first whom the message is for.</source>
        <translation>Vælg først, hvem beskeden er til.</translation>
    </message>
    <message>
        <source>There is nobody else on the board yet.</source>
        <translation>Der er endnu ingen andre på tavlen.</translation>
    </message>
    <message>
        <source>A message to yourself can&apos;t be sent. Choose a colleague, or All.</source>
        <translation>Du kan ikke sende en besked til dig selv. Vælg en kollega, eller All.</translation>
    </message>
    <message>
        <source>%1 is not on the board. Choose a name from the list.</source>
        <translation>%1 står ikke på tavlen. Vælg et navn fra listen.</translation>
    </message>
    <message>
        <source>Your messages could not be read.</source>
        <translation>Dine beskeder kunne ikke læses.</translation>
    </message>
    <message>
        <source>The message was not deleted, because your database could not be written. Please try again.</source>
        <translation>Beskeden blev ikke slettet, fordi din database ikke kunne skrives. Prøv igen.</translation>
    </message>
    <message>
        <source>%1 is not on the board. The message waits until that name is there.</source>
        <translation>%1 står ikke på tavlen. Beskeden venter, til navnet er der.</translation>
    </message>
    <message>
        <source>The row was not stored, because your database could not be written. Please try again.</source>
        <translation>Rækken blev ikke gemt, fordi din database ikke kunne skrives. Prøv igen.</translation>
    </message>
    <message>
        <source>A status has room for %1 characters. What did not fit was left out.</source>
        <translation>En status har plads til %1 tegn. Det, der ikke var plads til, er udeladt.</translation>
    </message>
    <message>
        <source>Your saved texts could not be read.</source>
        <translation>Dine gemte tekster kunne ikke læses.</translation>
    </message>
    <message>
        <source>Type a text first.</source>
        <translation>Skriv en tekst først.</translation>
    </message>
    <message>
        <source>The text was not saved, because your database could not be written. Please try again.</source>
        <translation>Teksten blev ikke gemt, fordi din database ikke kunne skrives. Prøv igen.</translation>
    </message>
    <message>
        <source>Saved in the list.</source>
        <translation>Gemt på listen.</translation>
    </message>
    <message>
        <source>Job ID must be filled in</source>
        <translation>Job-id skal udfyldes</translation>
    </message>
    <message>
        <source>This Job ID is already used</source>
        <translation>Dette job-id er allerede brugt</translation>
    </message>
    <message>
        <source>The job list has not answered yet. Please wait. If you leave, the job may still be stored.</source>
        <translation>Joblisten har ikke svaret endnu. Vent lidt. Går du nu, bliver jobbet måske alligevel gemt.</translation>
    </message>
    <message>
        <source>The job was not stored, because the job list could not be written. Please try again.</source>
        <translation>Jobbet blev ikke gemt, fordi joblisten ikke kunne skrives. Prøv igen.</translation>
    </message>
    <message>
        <source>Your notes could not be read.</source>
        <translation>Dine noter kunne ikke læses.</translation>
    </message>
    <message>
        <source>The new note is not saved yet.</source>
        <translation>Den nye note er ikke gemt endnu.</translation>
    </message>
    <message>
        <source>&amp;Save it</source>
        <translation>&amp;Gem den</translation>
    </message>
    <message>
        <source>&amp;Back to the note</source>
        <translation>&amp;Tilbage til noten</translation>
    </message>
    <message>
        <source>Do you want to DELETE this note ?

%1</source>
        <translation>Vil du SLETTE denne note ?

%1</translation>
    </message>
    <message>
        <source>The note was not deleted, because your database could not be written. Please try again.</source>
        <translation>Noten blev ikke slettet, fordi din database ikke kunne skrives. Prøv igen.</translation>
    </message>
    <message>
        <source>The note was not stored, because your database could not be written. Please try again.</source>
        <translation>Noten blev ikke gemt, fordi din database ikke kunne skrives. Prøv igen.</translation>
    </message>
    <message>
        <source>There is no note on this job yet.</source>
        <translation>Der er endnu ingen note om dette job.</translation>
    </message>
    <message>
        <source>No note contains this text.</source>
        <translation>Ingen note indeholder denne tekst.</translation>
    </message>
    <message>
        <source>You are stemping out in the FUTURE! (but that&apos;s ok)</source>
        <translation>Du stempler ud i FREMTIDEN! (men det er i orden)</translation>
    </message>
    <message>
        <source>You are stemping out EARLIER than IN! (if I could turn back time...)</source>
        <translation>Du stempler ud FØR du stemplede IND! (hvis jeg kunne skrue tiden tilbage...)</translation>
    </message>
    <message>
        <source>Enter search characters here</source>
        <translation>Skriv søgetegn her</translation>
    </message>
    <message>
        <source>&amp;Try again</source>
        <translation>&amp;Prøv igen</translation>
    </message>
    <message>
        <source>&amp;Close without saving</source>
        <translation>&amp;Luk uden at gemme</translation>
    </message>
    <message>
        <source>Do you want to DELETE %1 ?</source>
        <translation>Vil du SLETTE %1 ?</translation>
    </message>
    <message>
        <source>The job
%1
could not be deleted, because the job list is locked, write-protected or not there. Please try again.</source>
        <translation>Jobbet
%1
kunne ikke slettes, fordi joblisten er låst, skrivebeskyttet eller ikke på sin plads. Prøv igen.</translation>
    </message>
    <message>
        <source>Please type your initials.</source>
        <translation>Skriv dine initialer.</translation>
    </message>
    <message>
        <source>%1: %2 hours</source>
        <translation>%1: %2 timer</translation>
    </message>
    <message>
        <source>The file
%1
is there already. Do you want to replace it?</source>
        <translation>Filen
%1
findes allerede. Vil du erstatte den?</translation>
    </message>
    <message>
        <source>%1 others</source>
        <translation>%1 andre</translation>
    </message>
    <message>
        <source>%1 jobs</source>
        <translation>%1 job</translation>
    </message>
    <message>
        <source>The timesheet could not be printed on %1.</source>
        <translation>Timesedlen kunne ikke udskrives på %1.</translation>
    </message>
    <message>
        <source>There is no printer on this computer.

Do you want to save the timesheet as a PDF file instead?</source>
        <translation>Der er ingen printer på denne computer.

Vil du gemme timesedlen som PDF-fil i stedet?</translation>
    </message>
    <message>
        <source>Save the timesheet as PDF</source>
        <translation>Gem timesedlen som PDF</translation>
    </message>
    <message>
        <source>Save the sums as CSV</source>
        <translation>Gem summerne som CSV</translation>
    </message>
    <message>
        <source>Save the time rows as CSV</source>
        <translation>Gem tidsrækkerne som CSV</translation>
    </message>
    <message>
        <source>The file
%1
could not be saved. Its folder may be read-only or not there, the disk may be full, or another program may have opened it.</source>
        <translation>Filen
%1
kunne ikke gemmes. Måske er dens mappe skrivebeskyttet eller ikke på sin plads, disken fuld, eller et andet program har åbnet den.</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Side %1 af %2</translation>
    </message>
    <message>
        <source>Locate Company Data Base</source>
        <translation>Find firmadatabasen</translation>
    </message>
    <message>
        <source>Your initials become a file name. They cannot contain control characters.</source>
        <translation>Dine initialer bliver til et filnavn. De kan ikke indeholde styretegn.</translation>
    </message>
    <message>
        <source>Your initials become a file name. %1 cannot be used because of the character  %2</source>
        <translation>Dine initialer bliver til et filnavn. %1 kan ikke bruges på grund af tegnet  %2</translation>
    </message>
    <message>
        <source>Your initials become a file name. %1 cannot be used because it begins or ends with a dot or a blank.</source>
        <translation>Dine initialer bliver til et filnavn. %1 kan ikke bruges, fordi det begynder eller slutter med et punktum eller et mellemrum.</translation>
    </message>
    <message>
        <source>Your initials become a file name. These are too long; please choose shorter ones.</source>
        <translation>Dine initialer bliver til et filnavn. Disse er for lange; vælg nogle kortere.</translation>
    </message>
    <message>
        <source>%1 cannot be used: the system reserves this name for a device.</source>
        <translation>%1 kan ikke bruges: systemet forbeholder dette navn til en enhed.</translation>
    </message>
    <message>
        <source>%1 cannot be used: the program reserves this name for itself.</source>
        <translation>%1 kan ikke bruges: programmet forbeholder dette navn til sig selv.</translation>
    </message>
    <message>
        <source>File missing: Blank.mdb</source>
        <translation>Filen mangler: Blank.mdb</translation>
    </message>
    <message>
        <source>&amp;Go on</source>
        <translation>&amp;Fortsæt</translation>
    </message>
    <message>
        <source>The file %1 is damaged and could not be set aside.</source>
        <translation>Filen %1 er beskadiget og kunne ikke lægges til side.</translation>
    </message>
    <message>
        <source>The file %1 is damaged. It was set aside as
%2
and a new one was made.</source>
        <translation>Filen %1 er beskadiget. Den er lagt til side som
%2
og en ny er lavet.</translation>
    </message>
    <message>
        <source>The program is already running with the file
%1</source>
        <translation>Programmet kører allerede med filen
%1</translation>
    </message>
    <message>
        <source>The file
%1
is in use by another program, or lies on a drive that grants no locks. Close that program and start again.</source>
        <translation>Filen
%1
er i brug af et andet program eller ligger på et drev, der ikke giver låse. Luk det program, og start igen.</translation>
    </message>
    <message>
        <source>Put the shipped layout and texts of this window back?

The window and all its controls return to their shipped places and sizes. What you typed and chose in it stays.</source>
        <translation>Skal vinduets oprindelige opstilling og tekster genskabes?

Vinduet og alle dets felter får deres oprindelige pladser og størrelser tilbage. Det, du har skrevet og valgt i det, bliver.</translation>
    </message>
    <message>
        <source>

These texts were changed and would go:
</source>
        <translation>

Disse tekster er ændret og ville forsvinde:
</translation>
    </message>
    <message>
        <source>
… and %1 more</source>
        <translation>
… og %1 til</translation>
    </message>
    <message>
        <source>The shipped layout and texts could not be put back, because your database could not be read or written. Please try again.</source>
        <translation>Den oprindelige opstilling og de oprindelige tekster kunne ikke genskabes, fordi din database ikke kunne læses eller skrives. Prøv igen.</translation>
    </message>
    <message>
        <source>Editing </source>
        <translation>Redigerer </translation>
    </message>
    <message>
        <source>Tab accepts and Escape cancels. Ctrl and an arrow key move the control, with Shift they resize it.</source>
        <translation>Tab godtager, og Escape fortryder. Ctrl og en piletast flytter feltet, med Shift ændrer de dets størrelse.</translation>
    </message>
    <message>
        <source>Stemp &amp;OUT</source>
        <translation>Stempl &amp;UD</translation>
    </message>
    <message>
        <source>Stemp &amp;IN</source>
        <translation>Stempl &amp;IND</translation>
    </message>
    <message>
        <source>%1 Out</source>
        <translation>%1 Ude</translation>
    </message>
    <message>
        <source>%1 Status</source>
        <translation>%1 – status</translation>
    </message>
    <message>
        <source>Hours are exact sums. Rounded is the sum of each line to the nearest %1, halves to the even one; the rounded total adds the rounded lines.</source>
        <translation>Timer er nøjagtige summer. Afrundet er hver linjes sum til nærmeste %1, midt imellem til det lige antal; den afrundede total lægger de afrundede linjer sammen.</translation>
    </message>
    <message>
        <source>quarter of an hour</source>
        <translation>kvarter</translation>
    </message>
    <message>
        <source>half hour</source>
        <translation>halve time</translation>
    </message>
    <message>
        <source>whole hour</source>
        <translation>hele time</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Dag</translation>
    </message>
    <message>
        <source>Job</source>
        <translation>Job</translation>
    </message>
    <message>
        <source>Hours</source>
        <translation>Timer</translation>
    </message>
    <message>
        <source>Rounded</source>
        <translation>Afrundet</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beskrivelse</translation>
    </message>
    <message>
        <source>Found. People: %1, jobs: %2</source>
        <translation>Fundet. Personer: %1, job: %2</translation>
    </message>
    <message>
        <source>This file is no company database.</source>
        <translation>Denne fil er ikke en firmadatabase.</translation>
    </message>
    <message>
        <source>The file is there, but another program keeps it locked.</source>
        <translation>Filen er der, men et andet program holder den låst.</translation>
    </message>
    <message>
        <source>The file does not answer.</source>
        <translation>Filen svarer ikke.</translation>
    </message>
    <message>
        <source>There is no such file, or it cannot be read.</source>
        <translation>Der er ingen sådan fil, eller den kan ikke læses.</translation>
    </message>
    <message>
        <source>Stands in for %1, which is not there.</source>
        <translation>Træder i stedet for %1, som ikke er der.</translation>
    </message>
    <message>
        <source> OK keeps the file in use.</source>
        <translation> OK beholder filen, der er i brug.</translation>
    </message>
    <message>
        <source>1 stemp</source>
        <translation>1 stempling</translation>
    </message>
    <message>
        <source>%1 stemps</source>
        <translation>%1 stemplinger</translation>
    </message>
    <message>
        <source>Not yet in &quot;%1&quot;, as %2: %3, kept in &quot;%4&quot; until then.</source>
        <translation>Endnu ikke i &quot;%1&quot;, fordi %2: %3, gemt i &quot;%4&quot; indtil da.</translation>
    </message>
    <message>
        <source>%1 in memory only! &quot;%2&quot;: %3.</source>
        <translation>%1 kun i hukommelsen! &quot;%2&quot;: %3.</translation>
    </message>
    <message>
        <source>another program has locked it</source>
        <translation>et andet program har låst den</translation>
    </message>
    <message>
        <source>it is damaged</source>
        <translation>den er beskadiget</translation>
    </message>
    <message>
        <source>it or its folder is write-protected</source>
        <translation>den eller dens mappe er skrivebeskyttet</translation>
    </message>
    <message>
        <source>it is not there or may not be read</source>
        <translation>den er der ikke eller må ikke læses</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>disken er fuld</translation>
    </message>
    <message>
        <source>another program keeps it in a mode (a write-ahead log) that is not fit for sharing</source>
        <translation>et andet program holder den i en tilstand (write-ahead log), hvor den ikke kan deles</translation>
    </message>
    <message>
        <source>it could not be written</source>
        <translation>den kunne ikke skrives</translation>
    </message>
    <message>
        <source>neither it nor its template "Blank.mdb" is there</source>
        <translation>hverken den eller dens skabelon &quot;Blank.mdb&quot; er der</translation>
    </message>
    <message>
        <source>it is not there, and its template &quot;Blank.mdb&quot; is damaged</source>
        <translation>den er der ikke, og dens skabelon &quot;Blank.mdb&quot; er beskadiget</translation>
    </message>
    <message>
        <source>it is not there and could not be made: %1</source>
        <translation>den er der ikke og kunne ikke oprettes: %1</translation>
    </message>
    <message>
        <source>The file %1 is damaged. It was set aside as
%2
No new one could be made yet.</source>
        <translation>Filen %1 er beskadiget. Den blev lagt til side som
%2
Der kunne endnu ikke oprettes en ny.</translation>
    </message>
    <message>
        <source>Your time database
%1
cannot be read: %2.

If you go on without it, your stemps are kept in
%3
until it can be written. A row that is still open in it is then asked about at the next start only.</source>
        <translation>Din tidsdatabase
%1
kan ikke læses: %2.

Hvis du går videre uden den, gemmes dine stemplinger i
%3
indtil den kan skrives. Hvis en stempling stadig er åben i den, spørges der først om den ved næste start.</translation>
    </message>
    <message>
        <source>Your last stemps could not be saved. These files do not take them:

%1
(%2)

%3
(%4)

If you close the program now, the stemps are lost.</source>
        <translation>Dine seneste stemplinger kunne ikke gemmes. Disse filer tager ikke imod dem:

%1
(%2)

%3
(%4)

Hvis du lukker programmet nu, går stemplingerne tabt.</translation>
    </message>
    <message>
        <source>another program keeps the company database in a mode (a write-ahead log) in which it can't be shared. Close that program.</source>
        <translation>et andet program holder firmadatabasen i en tilstand (write-ahead log), hvor den ikke kan deles. Luk det program.</translation>
    </message>
    <message>
        <source>stemps that wait for their file</source>
        <translation>stemplinger, der venter på deres fil</translation>
    </message>
    <message>
        <source>there is a folder of that name</source>
        <translation>der er en mappe med det navn</translation>
    </message>
</context>
<context>
    <name>MessageBoard</name>
    <message>
        <source>Fairosne</source>
        <translation>Fairosne</translation>
    </message>
    <message>
        <source>The board shows all colleagues who share the company database: a white name with a full disc is stemped in, a light grey one with a ring is out, a dark grey one with a cross has closed the program. Beside the name stands the colleague&apos;s status text or a message to you and, where there is room, the job the colleague is stemped in on; rest the mouse on the name to see since when. Closing the board only minimises it, so that messages still reach you.</source>
        <translation>Tavlen viser alle kolleger, der deler firmadatabasen: Et hvidt navn med en fuld skive er stemplet ind, et lysegråt med en ring er ude, og et mørkegråt med et kryds har lukket programmet. Ved siden af navnet står kollegaens statustekst eller en besked til dig og, hvor der er plads, det job, kollegaen er stemplet ind på; hvil musen på navnet for at se siden hvornår. Lukker du tavlen, minimeres den kun, så beskeder stadig når dig.</translation>
    </message>
    <message>
        <source>Click a name for messaging, click your status to change it, click a message to clear it</source>
        <translation>Klik på et navn for at skrive en besked, på din status for at ændre den, på en besked for at fjerne den</translation>
    </message>
    <message>
        <source>Click a colleague&apos;s name to write a message, or your own name or the heading above the names to write to all. Click your own status to change what the others see. A yellow cell is a message to you: click it when you have read it, and the status comes back. A number at its end tells how many more messages wait behind it. Enter does the same in the cell with the frame; Delete on a name takes a colleague who has left off the board. Statuses and messages are kept in the company database.</source>
        <translation>Klik på en kollegas navn for at skrive en besked, eller på dit eget navn eller overskriften over navnene for at skrive til alle. Klik på din egen status for at ændre det, de andre ser. En gul celle er en besked til dig: Klik på den, når du har læst den, så kommer statussen tilbage. Et tal i dens ende viser, hvor mange flere beskeder der venter bag den. Enter gør det samme i cellen med rammen; Delete på et navn tager en kollega, der er rejst, af tavlen. Statustekster og beskeder gemmes i firmadatabasen.</translation>
    </message>
    <message>
        <source>Board of all users</source>
        <translation>Tavle over alle brugere</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Bruger</translation>
    </message>
    <message>
        <source>Status and Messages</source>
        <translation>Status og beskeder</translation>
    </message>
</context>
<context>
    <name>Notes</name>
    <message>
        <source>Notes</source>
        <translation>Noter</translation>
    </message>
    <message>
        <source>Your dated notes on your jobs. Read what you noted on a job, find a note by any word in it, and write new ones below. The notes are stored in your own database and never go to the company&apos;s; only where one file Stemp.mdb serves everyone on a machine do the others there see them. Your time rows are not touched.</source>
        <translation>Dine daterede noter om dine job. Læs, hvad du har noteret om et job, find en note på et hvilket som helst ord i den, og skriv nye nederst. Noterne gemmes i din egen database og kommer aldrig i firmaets; kun hvor én fil Stemp.mdb bruges af alle på en maskine, ser de andre dér dem. Dine tidsrækker berøres ikke.</translation>
    </message>
    <message>
        <source>Show only the notes that contain this</source>
        <translation>Vis kun de noter, der indeholder dette</translation>
    </message>
    <message>
        <source>Type a word, a date such as 2026.03, or a job ID: the grid then shows only the notes that contain it, in capital or small letters. Empty the box, or press Escape in it, to see all notes again. No note is changed.</source>
        <translation>Skriv et ord, en dato som 2026.03 eller et job-id: Så viser tabellen kun de noter, der indeholder det, med store eller små bogstaver. Tøm feltet, eller tryk på Escape i det, for at se alle noter igen. Ingen note ændres.</translation>
    </message>
    <message>
        <source>&amp;Find:</source>
        <translation>&amp;Find:</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Find</translation>
    </message>
    <message>
        <source>Your notes on all jobs, the newest at the bottom</source>
        <translation>Dine noter om alle job, den nyeste nederst</translation>
    </message>
    <message>
        <source>Shows the notes on all jobs in the order in which they were written, each with its job and its date. When the window opens, it stands at the first note on the current job, or at the newest note when there is none. Choose a row to read the whole note below. Ctrl+C copies the chosen note, and Delete deletes it once you have answered Yes; a stored note can&apos;t be changed.</source>
        <translation>Viser noterne om alle job i den rækkefølge, de er skrevet, hver med sit job og sin dato. Når vinduet åbner, står tabellen ved den første note om det aktuelle job, eller ved den nyeste note, når der ingen er. Vælg en række for at læse hele noten nedenunder. Ctrl+C kopierer den valgte note, og Delete sletter den, når du har svaret Ja; en gemt note kan ikke ændres.</translation>
    </message>
    <message>
        <source>JobID</source>
        <translation>Job-id</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>The whole of the chosen note</source>
        <translation>Hele den valgte note</translation>
    </message>
    <message>
        <source>Shows the note that is chosen in the grid from its first line to its last, however long it is. Text can be selected and copied here. It can&apos;t be changed.</source>
        <translation>Viser den note, der er valgt i tabellen, fra første til sidste linje, uanset hvor lang den er. Her kan tekst markeres og kopieres. Den kan ikke ændres.</translation>
    </message>
    <message>
        <source>The chosen note</source>
        <translation>Den valgte note</translation>
    </message>
    <message>
        <source>Enter Job ID here</source>
        <translation>Skriv job-id her</translation>
    </message>
    <message>
        <source>The ID of the job that the new note is about; it is filled with the job of the main window. Any text will do, also of a job that is in no list. Press Enter in the box to go to the first note on that job; nothing is stored before you press Save.</source>
        <translation>Id&apos;et på det job, den nye note handler om; feltet er udfyldt med hovedvinduets job. Enhver tekst kan bruges, også et job, der ikke står på nogen liste. Tryk på Enter i feltet for at gå til den første note om jobbet; intet gemmes, før du trykker på Gem.</translation>
    </message>
    <message>
        <source>&amp;Job:</source>
        <translation>&amp;Job:</translation>
    </message>
    <message>
        <source>Job ID of the new note</source>
        <translation>Job-id for den nye note</translation>
    </message>
    <message>
        <source>Enter new note here, then press save</source>
        <translation>Skriv en ny note her, og tryk på Gem</translation>
    </message>
    <message>
        <source>The text of the new note; Enter begins a new line, and Ctrl+Enter saves. The date is put before it when it is saved: on the same line, or on a line of its own when the note has more than 50 characters. Blanks at its beginning and end are not stored.</source>
        <translation>Teksten til den nye note; Enter begynder en ny linje, og Ctrl+Enter gemmer. Datoen sættes foran, når noten gemmes: på samme linje, eller på en linje for sig, når noten har mere end 50 tegn. Mellemrum i begyndelsen og slutningen gemmes ikke.</translation>
    </message>
    <message>
        <source>New no&amp;te:</source>
        <translation>Ny no&amp;te:</translation>
    </message>
    <message>
        <source>New note</source>
        <translation>Ny note</translation>
    </message>
    <message>
        <source>Save textbox in table</source>
        <translation>Gem tekstfeltet i tabellen</translation>
    </message>
    <message>
        <source>Stores the new note for the job in the box, with today&apos;s date before it. The box is emptied for the next note, and the stored note is shown in the grid. An empty note is not stored.</source>
        <translation>Gemmer den nye note under jobbet i feltet, med dagens dato foran. Feltet tømmes til den næste note, og den gemte note vises i tabellen. En tom note gemmes ikke.</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Gem</translation>
    </message>
    <message>
        <source>Close the window</source>
        <translation>Luk vinduet</translation>
    </message>
    <message>
        <source>Closes the window; Escape does the same. If a new note is not saved yet, you are asked whether to save it, to discard it or to go back. Notes that were saved stay saved.</source>
        <translation>Lukker vinduet; Escape gør det samme. Hvis en ny note ikke er gemt endnu, bliver du spurgt, om den skal gemmes eller kasseres, eller om du vil tilbage. Noter, der er gemt, forbliver gemt.</translation>
    </message>
    <message>
        <source>&amp;Exit</source>
        <translation>&amp;Luk</translation>
    </message>
    <message>
        <source>What became of saving or finding</source>
        <translation>Hvordan det gik med at gemme eller finde</translation>
    </message>
    <message>
        <source>Tells you when a note could not be stored or deleted, or when there is no note on the job or with the text that you look for. A note that could not be stored stays in its box, so that you can try again. It is empty while all is well.</source>
        <translation>Fortæller, når en note ikke kunne gemmes eller slettes, eller når der ingen note er om jobbet eller med den tekst, du leder efter. En note, der ikke kunne gemmes, bliver i feltet, så du kan prøve igen. Den er tom, så længe alt er i orden.</translation>
    </message>
    <message>
        <source>Result of saving or finding</source>
        <translation>Resultatet af at gemme eller finde</translation>
    </message>
    <message>
        <source>Fetches the notes of all jobs from your own database for the grid, puts new ones there and takes deleted ones out. It is not seen. It never changes a note that is stored.</source>
        <translation>Henter noterne om alle job fra din egen database til tabellen, lægger nye derind og tager slettede ud. Den ses ikke. Den ændrer aldrig en note, der er gemt.</translation>
    </message>
</context>
<context>
    <name>RepGen</name>
    <message>
        <source>Day</source>
        <translation>Dag</translation>
    </message>
    <message>
        <source>Job</source>
        <translation>Job</translation>
    </message>
    <message>
        <source>Hours</source>
        <translation>Timer</translation>
    </message>
    <message>
        <source>Rounded</source>
        <translation>Afrundet</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beskrivelse</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Måned</translation>
    </message>
    <message>
        <source>Fetches the sums from your time database for the grid. It is not seen. It only reads and changes no data.</source>
        <translation>Henter summerne fra din tidsdatabase til tabellen. Den ses ikke. Den læser kun og ændrer ingen data.</translation>
    </message>
    <message>
        <source>The window in which you choose the printer. It opens from the preview of the timesheet; the printer that you print on is suggested the next time.</source>
        <translation>Vinduet, hvor du vælger printeren. Det åbner fra timesedlens udskriftsvisning; den printer, du udskriver på, foreslås næste gang.</translation>
    </message>
    <message>
        <source>Hours Summaries</source>
        <translation>Timeopgørelser</translation>
    </message>
    <message>
        <source>Sums your hours over the days that you choose, for each job or for each job and day. The result can be printed as a timesheet, copied to another program or saved as a file. Your time rows are only read; nothing here changes them.</source>
        <translation>Lægger dine timer sammen for de dage, du vælger, for hvert job eller for hvert job og hver dag. Resultatet kan udskrives som timeseddel, kopieres til et andet program eller gemmes som fil. Dine tidsrækker læses kun; intet her ændrer dem.</translation>
    </message>
    <message>
        <source>The first day of the sums</source>
        <translation>Den første dag i opgørelsen</translation>
    </message>
    <message>
        <source>The first day that is summed. Type a date, or click the arrow to choose one from a calendar. A stemp belongs to the day on which you stemped in; nothing is summed before you press one of the two buttons below.</source>
        <translation>Den første dag, der tælles med. Skriv en dato, eller klik på pilen for at vælge den i en kalender. En stempling hører til den dag, du stemplede ind; intet lægges sammen, før du trykker på en af de to knapper nedenunder.</translation>
    </message>
    <message>
        <source>&amp;From</source>
        <translation>&amp;Fra</translation>
    </message>
    <message>
        <source>First day</source>
        <translation>Første dag</translation>
    </message>
    <message>
        <source>The last day of the sums</source>
        <translation>Den sidste dag i opgørelsen</translation>
    </message>
    <message>
        <source>The last day that is summed; all of it counts. Type a date, or click the arrow to choose one from a calendar. When it lies before the first day, there is nothing to sum.</source>
        <translation>Den sidste dag, der tælles med; hele dagen tæller. Skriv en dato, eller klik på pilen for at vælge den i en kalender. Ligger den før den første dag, er der intet at lægge sammen.</translation>
    </message>
    <message>
        <source>&amp;To</source>
        <translation>&amp;Til</translation>
    </message>
    <message>
        <source>Last day</source>
        <translation>Sidste dag</translation>
    </message>
    <message>
        <source>Set both dates to today</source>
        <translation>Sæt begge datoer til i dag</translation>
    </message>
    <message>
        <source>Sets both dates to today. Use it to see what you have done so far. It only sets the dates: press one of the two buttons below to sum.</source>
        <translation>Sætter begge datoer til i dag. Brug den til at se, hvad du har nået indtil nu. Den sætter kun datoerne: tryk på en af de to knapper nedenunder for at lægge sammen.</translation>
    </message>
    <message>
        <source>T&amp;oday</source>
        <translation>&amp;I dag</translation>
    </message>
    <message>
        <source>Set the dates to this week</source>
        <translation>Sæt datoerne til denne uge</translation>
    </message>
    <message>
        <source>Sets the dates to the first and the last day of this week, which begins on the day that is usual in your country. It only sets the dates: press one of the two buttons below to sum.</source>
        <translation>Sætter datoerne til den første og den sidste dag i denne uge, som begynder på den dag, der er almindelig i dit land. Den sætter kun datoerne: tryk på en af de to knapper nedenunder for at lægge sammen.</translation>
    </message>
    <message>
        <source>This &amp;week</source>
        <translation>Denne &amp;uge</translation>
    </message>
    <message>
        <source>Set the dates to last week</source>
        <translation>Sæt datoerne til sidste uge</translation>
    </message>
    <message>
        <source>Sets the dates to the first and the last day of the week before this one. Use it on Monday for a timesheet of the week that is over. It only sets the dates: press one of the two buttons below to sum.</source>
        <translation>Sætter datoerne til den første og den sidste dag i ugen før denne. Brug den om mandagen til en timeseddel for ugen, der er gået. Den sætter kun datoerne: tryk på en af de to knapper nedenunder for at lægge sammen.</translation>
    </message>
    <message>
        <source>&amp;Last week</source>
        <translation>&amp;Sidste uge</translation>
    </message>
    <message>
        <source>Set the dates to this month</source>
        <translation>Sæt datoerne til denne måned</translation>
    </message>
    <message>
        <source>Sets the dates to the first and the last day of this month. Days that are still to come have no hours yet. It only sets the dates: press one of the two buttons below to sum.</source>
        <translation>Sætter datoerne til den første og den sidste dag i denne måned. Dage, der endnu ikke er kommet, har ingen timer. Den sætter kun datoerne: tryk på en af de to knapper nedenunder for at lægge sammen.</translation>
    </message>
    <message>
        <source>This &amp;month</source>
        <translation>Denne &amp;måned</translation>
    </message>
    <message>
        <source>Set the dates to last month</source>
        <translation>Sæt datoerne til sidste måned</translation>
    </message>
    <message>
        <source>Sets the dates to the first and the last day of the month before this one. Use it for a timesheet of the month that is over. It only sets the dates: press one of the two buttons below to sum.</source>
        <translation>Sætter datoerne til den første og den sidste dag i måneden før denne. Brug den til en timeseddel for måneden, der er gået. Den sætter kun datoerne: tryk på en af de to knapper nedenunder for at lægge sammen.</translation>
    </message>
    <message>
        <source>L&amp;ast month</source>
        <translation>Sidste må&amp;ned</translation>
    </message>
    <message>
        <source>Sum the hours of each job</source>
        <translation>Læg timerne sammen for hvert job</translation>
    </message>
    <message>
        <source>Sums your hours of each job between the two dates and shows them in the grid and in the chart. Use it to see where your time went, or for a timesheet with one line for each job. A job that you are still stemped in on has no hours before you stemp out.</source>
        <translation>Lægger dine timer sammen for hvert job mellem de to datoer og viser dem i tabellen og i diagrammet. Brug den til at se, hvor tiden blev af, eller til en timeseddel med én linje for hvert job. Et job, du stadig er stemplet ind på, har ingen timer, før du stempler ud.</translation>
    </message>
    <message>
        <source>&amp;Per job</source>
        <translation>Pr. &amp;job</translation>
    </message>
    <message>
        <source>Sum the hours of each job on each day</source>
        <translation>Læg timerne sammen for hvert job på hver dag</translation>
    </message>
    <message>
        <source>Sums your hours of each job and day between the two dates, the earliest day first. Use it for a timesheet with one line for each job and day. The rounding is done for each line, so that the rounded total may differ from that of the sums for each job.</source>
        <translation>Lægger dine timer sammen for hvert job og hver dag mellem de to datoer, den tidligste dag først. Brug den til en timeseddel med én linje for hvert job og hver dag. Der afrundes for hver linje, så den afrundede sum kan være en anden end ved opgørelsen for hvert job.</translation>
    </message>
    <message>
        <source>Per &amp;day</source>
        <translation>Pr. &amp;dag</translation>
    </message>
    <message>
        <source>Show the timesheet as it will be printed</source>
        <translation>Vis timesedlen, som den bliver udskrevet</translation>
    </message>
    <message>
        <source>Shows the sums in the grid as a timesheet, page by page, and prints it on the printer that you choose; its foot says how the hours were rounded. Without a printer, you are asked whether to save it as a PDF file. It prints what was summed last, even when you have changed the dates since.</source>
        <translation>Viser tabellens summer som en timeseddel, side for side, og udskriver den på den printer, du vælger; nederst på siden står, hvordan timerne er afrundet. Uden printer bliver du spurgt, om den skal gemmes som PDF-fil. Den udskriver det, der sidst blev lagt sammen, også når du har ændret datoerne siden.</translation>
    </message>
    <message>
        <source>Print timesheet</source>
        <translation>Udskriv timeseddel</translation>
    </message>
    <message>
        <source>Copy the sums, for another program</source>
        <translation>Kopiér summerne til et andet program</translation>
    </message>
    <message>
        <source>Copies the sums in the grid, with your name, the dates and the totals, so that you can paste them into a spreadsheet or a mail. Whatever was copied before is replaced. It copies what was summed last, even when you have changed the dates since.</source>
        <translation>Kopierer tabellens summer med dit navn, datoerne og totalerne, så du kan sætte dem ind i et regneark eller en mail. Det, der før var kopieret, bliver erstattet. Den kopierer det, der sidst blev lagt sammen, også når du har ændret datoerne siden.</translation>
    </message>
    <message>
        <source>Copy table to cllipboard</source>
        <translation>Kopiér tabel til udklipsholder</translation>
    </message>
    <message>
        <source>The sums: a line for each job, or each job and day</source>
        <translation>Summerne: en linje for hvert job eller for hvert job og hver dag</translation>
    </message>
    <message>
        <source>Shows the hours of each job, or each job and day: the exact ones, with a third decimal where two would round them, and those rounded as your settings say. A job that was renamed has a line for each name. Ctrl+C copies the selected lines. The lines are sums; they cannot be changed here.</source>
        <translation>Viser timerne for hvert job eller for hvert job og hver dag: de nøjagtige, med en tredje decimal, hvor to ville afrunde dem, og dem, der er afrundet, som dine indstillinger siger. Et job, der har skiftet navn, har en linje for hvert navn. Ctrl+C kopierer de markerede linjer. Linjerne er summer; de kan ikke ændres her.</translation>
    </message>
    <message>
        <source>Summary grid</source>
        <translation>Opgørelsestabel</translation>
    </message>
    <message>
        <source>The hours as bars</source>
        <translation>Timerne som søjler</translation>
    </message>
    <message>
        <source>Shows the hours of the grid as bars: one for each line, the longest first, or one day after the other. Let the mouse rest on a bar to read it in full. Where there are too many to tell apart, the smallest jobs are put together, or the days into weeks, months or years.</source>
        <translation>Viser tabellens timer som søjler: en for hver linje, den længste først, eller den ene dag efter den anden. Lad musen hvile på en søjle for at læse det hele. Hvor der er for mange til at skelne dem, slås de mindste job sammen eller dagene til uger, måneder eller år.</translation>
    </message>
    <message>
        <source>Chart of the hours</source>
        <translation>Diagram over timerne</translation>
    </message>
    <message>
        <source>The totals of the grid</source>
        <translation>Tabellens totaler</translation>
    </message>
    <message>
        <source>Shows the exact hours and the rounded hours of all lines together, how much the rounding adds or takes away, and the days that were summed. The dates above may have been changed since. It is empty before the first sum.</source>
        <translation>Viser de nøjagtige og de afrundede timer for alle linjer tilsammen, hvor meget afrundingen lægger til eller trækker fra, og de dage, der blev lagt sammen. Datoerne ovenfor kan være ændret siden. Den er tom før den første opgørelse.</translation>
    </message>
    <message>
        <source>Hours: %1    Rounded: %2    Difference: %3    From %4 to %5</source>
        <translation>Timer: %1    Afrundet: %2    Forskel: %3    Fra %4 til %5</translation>
    </message>
    <message>
        <source>The sums are being made</source>
        <translation>Summerne bliver lavet</translation>
    </message>
    <message>
        <source>Shown while sums take longer than a moment. The window may be closed meanwhile; the sums are then dropped. Your time rows are only read.</source>
        <translation>Vises, mens summerne tager længere end et øjeblik. Vinduet må lukkes imens; så kasseres summerne. Dine tidsrækker læses kun.</translation>
    </message>
    <message>
        <source>Summing ...</source>
        <translation>Lægger sammen ...</translation>
    </message>
    <message>
        <source>The time rows are being saved</source>
        <translation>Tidsrækkerne er ved at blive gemt</translation>
    </message>
    <message>
        <source>Shown while the time rows that you save as a file take longer than a moment. The window stays open until the file is written. Your time rows are only read.</source>
        <translation>Vises, når det tager mere end et øjeblik at gemme tidsrækkerne som en fil. Vinduet bliver åbent, indtil filen er skrevet. Dine tidsrækker læses kun.</translation>
    </message>
    <message>
        <source>Saving ...</source>
        <translation>Gemmer ...</translation>
    </message>
    <message>
        <source>Nothing was found between the two dates</source>
        <translation>Intet blev fundet mellem de to datoer</translation>
    </message>
    <message>
        <source>Shown when you have not stemped in between the two dates. Look at the dates: the first one may lie after the last one. The grid and the chart are empty then.</source>
        <translation>Vises, når du ikke har stemplet ind mellem de to datoer. Se på datoerne: den første ligger måske efter den sidste. Tabellen og diagrammet er tomme så længe.</translation>
    </message>
    <message>
        <source>No hours in this range</source>
        <translation>Ingen timer i dette tidsrum</translation>
    </message>
    <message>
        <source>The sums could not be made</source>
        <translation>Summerne kunne ikke laves</translation>
    </message>
    <message>
        <source>Shown when your time database could not be read: it is locked by another program, damaged or not there. Try again in a moment. What the grid shows is still the sum before.</source>
        <translation>Vises, når din tidsdatabase ikke kunne læses: den er låst af et andet program, beskadiget eller ikke på sin plads. Prøv igen om et øjeblik. Det, tabellen viser, er stadig den forrige opgørelse.</translation>
    </message>
    <message>
        <source>The time database cannot be read just now</source>
        <translation>Tidsdatabasen kan ikke læses lige nu</translation>
    </message>
    <message>
        <source>Some of your last stemps are missing in the sums</source>
        <translation>Nogle af dine sidste stemplinger mangler i summerne</translation>
    </message>
    <message>
        <source>Shown while stemps of yours could not be written to your time database yet. The sums are made from the database, so these stemps are missing in them. Sum again when the main window says no more that something is not saved.</source>
        <translation>Vises, mens nogle af dine stemplinger endnu ikke kunne skrives til din tidsdatabase. Summerne laves af databasen, så disse stemplinger mangler i dem. Læg sammen igen, når hovedvinduet ikke længere siger, at noget ikke er gemt.</translation>
    </message>
    <message>
        <source>Not saved yet and not in the sums: %1</source>
        <translation>Endnu ikke gemt og ikke i summerne: %1</translation>
    </message>
    <message>
        <source>Save the sums or the time rows as a file</source>
        <translation>Gem summerne eller tidsrækkerne som fil</translation>
    </message>
    <message>
        <source>Saves what was summed last as a PDF file or as a table for other programs, or the time rows themselves. You choose the name and the place. Your time rows stay as they are.</source>
        <translation>Gemmer det, der sidst blev lagt sammen, som PDF-fil eller som tabel til andre programmer, eller selve tidsrækkerne. Du vælger navnet og stedet. Dine tidsrækker bliver, som de er.</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Gem</translation>
    </message>
    <message>
        <source>Times&amp;heet as PDF ...</source>
        <translation>Timeseddel som &amp;PDF ...</translation>
    </message>
    <message>
        <source>Save the timesheet as a PDF file</source>
        <translation>Gem timesedlen som PDF-fil</translation>
    </message>
    <message>
        <source>Saves the timesheet as it would be printed, as a PDF file. Use it to hand the timesheet in by mail. It saves what was summed last, even when you have changed the dates since.</source>
        <translation>Gemmer timesedlen, som den ville blive udskrevet, som PDF-fil. Brug den til at aflevere timesedlen pr. mail. Den gemmer det, der sidst blev lagt sammen, også når du har ændret datoerne siden.</translation>
    </message>
    <message>
        <source>S&amp;ums as CSV ...</source>
        <translation>Summer som &amp;CSV ...</translation>
    </message>
    <message>
        <source>Save the sums as a table for other programs</source>
        <translation>Gem summerne som tabel til andre programmer</translation>
    </message>
    <message>
        <source>Saves the lines of the grid as a CSV file, which spreadsheets and other programs read: exact and rounded hours, with a decimal point and full dates whatever the country. It saves what was summed last, even when you have changed the dates since.</source>
        <translation>Gemmer tabellens linjer som CSV-fil, som regneark og andre programmer læser: nøjagtige og afrundede timer med decimalpunktum og fulde datoer, uanset landet. Den gemmer det, der sidst blev lagt sammen, også når du har ændret datoerne siden.</translation>
    </message>
    <message>
        <source>Time &amp;rows as CSV ...</source>
        <translation>Tids&amp;rækker som CSV ...</translation>
    </message>
    <message>
        <source>Save the single stemps as a table for other programs</source>
        <translation>Gem de enkelte stemplinger som tabel til andre programmer</translation>
    </message>
    <message>
        <source>Saves the single stemps between the two dates as a CSV file: job, description, when you stemped in and when you stemped out. Use it to work on with your hours in another program. The days are those that were summed last or, before the first sum, those of the two dates.</source>
        <translation>Gemmer de enkelte stemplinger mellem de to datoer som CSV-fil: job, beskrivelse, hvornår du stemplede ind, og hvornår du stemplede ud. Brug den til at arbejde videre med dine timer i et andet program. Dagene er dem, der sidst blev lagt sammen, eller, før den første opgørelse, de to datoers.</translation>
    </message>
</context>
<context>
    <name>Status</name>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Your status is the text that stands beside your name on the board, so that your colleagues know where you are. Type it or choose one that you have saved, and press Send. An empty text takes the status away.</source>
        <translation>Din status er den tekst, der står ved dit navn på tavlen, så dine kolleger ved, hvor du er. Skriv den, eller vælg en, du har gemt, og tryk på Send. En tom tekst fjerner statussen.</translation>
    </message>
    <message>
        <source>Type a status, or choose a saved one</source>
        <translation>Skriv en status, eller vælg en gemt</translation>
    </message>
    <message>
        <source>The status that is to stand beside the name on the board; it is filled with the present one. Type another one of up to 80 characters, or open the list to choose one that you have saved. Your colleagues see nothing before you press Send.</source>
        <translation>Den status, der skal stå ved navnet på tavlen; feltet er udfyldt med den nuværende. Skriv en anden på op til 80 tegn, eller åbn listen for at vælge en, du har gemt. Dine kolleger ser intet, før du trykker på Send.</translation>
    </message>
    <message>
        <source>Status &amp;text:</source>
        <translation>Status&amp;tekst:</translation>
    </message>
    <message>
        <source>Status text</source>
        <translation>Statustekst</translation>
    </message>
    <message>
        <source>Save a frequently used text in the list</source>
        <translation>Gem en tekst, du ofte bruger, på listen</translation>
    </message>
    <message>
        <source>Saves the text in the box, so that the list offers it from now on. Use it for texts that you need often, such as Lunch. The texts are kept in your own database; your status is not changed by it.</source>
        <translation>Gemmer teksten i feltet, så listen tilbyder den fremover. Brug den til tekster, du ofte har brug for, såsom Frokost. Teksterne gemmes i din egen database; din status ændres ikke af det.</translation>
    </message>
    <message>
        <source>Sa&amp;ve</source>
        <translation>&amp;Gem</translation>
    </message>
    <message>
        <source>Take the text in the box out of the list</source>
        <translation>Tag teksten i feltet ud af listen</translation>
    </message>
    <message>
        <source>Takes the text in the box out of the list of saved texts. Choose from the list a text that you no longer need and press this button. The text stays in the box until you change it, so Save brings it back; your status is not changed by it.</source>
        <translation>Tager teksten i feltet ud af listen over gemte tekster. Vælg en tekst på listen, som du ikke længere har brug for, og tryk på knappen. Teksten bliver i feltet, til du ændrer den, så Gem henter den tilbage; din status ændres ikke af det.</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Fjern</translation>
    </message>
    <message>
        <source>Show this status on the board</source>
        <translation>Vis denne status på tavlen</translation>
    </message>
    <message>
        <source>Closes the window and writes the status to the board, where all colleagues see it; Enter does the same. An empty text takes the status away. The list of saved texts stays as it is.</source>
        <translation>Lukker vinduet og skriver statussen på tavlen, hvor alle kolleger ser den; Enter gør det samme. En tom tekst fjerner statussen. Listen over gemte tekster forbliver, som den er.</translation>
    </message>
    <message>
        <source>&amp;Send</source>
        <translation>&amp;Send</translation>
    </message>
    <message>
        <source>Close the window and leave the status as it is</source>
        <translation>Luk vinduet, og lad statussen være, som den er</translation>
    </message>
    <message>
        <source>Closes the window without changing the status; Escape does the same. Texts that you have saved in the list stay saved.</source>
        <translation>Lukker vinduet uden at ændre statussen; Escape gør det samme. Tekster, du har gemt på listen, forbliver gemt.</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuller</translation>
    </message>
    <message>
        <source>What became of saving or removing the text</source>
        <translation>Hvordan det gik med at gemme eller fjerne teksten</translation>
    </message>
    <message>
        <source>Tells you whether the text was saved in the list or removed from it, or why it was not. A text that was not saved stays in its box, and can be sent all the same.</source>
        <translation>Fortæller, om teksten blev gemt på listen eller fjernet fra den, eller hvorfor den ikke blev. En tekst, der ikke blev gemt, bliver i sit felt og kan sendes alligevel.</translation>
    </message>
    <message>
        <source>Result of saving</source>
        <translation>Resultatet af at gemme</translation>
    </message>
</context>
<context>
    <name>StempWin</name>
    <message>
        <source>Fetches the rows of the last days from your time database for the grid. It is not seen. How many days it fetches is set in the settings; it changes no data.</source>
        <translation>Henter de seneste dages rækker fra din tidsdatabase til tabellen. Den kan ikke ses. Hvor mange dage den henter, vælges i indstillingerne; den ændrer ingen data.</translation>
    </message>
    <message>
        <source>Counts the seconds between two looks at the company database. It is not seen. How many seconds that are is set in the settings.</source>
        <translation>Tæller sekunderne mellem to kig i firmadatabasen. Den kan ikke ses. Hvor mange sekunder det er, vælges i indstillingerne.</translation>
    </message>
    <message>
        <source>Lets the icons blink while a message waits to be read. It is not seen and changes no data.</source>
        <translation>Får ikonerne til at blinke, mens en besked venter på at blive læst. Den kan ikke ses og ændrer ingen data.</translation>
    </message>
    <message>
        <source>Stemp</source>
        <translation>Stemp</translation>
    </message>
    <message>
        <source>This is your clock. Pick a job and press the button to stemp in; press it again to stemp out. The window is green while you are stemped in and red while you are out. Every stemp is written to your time database at once.</source>
        <translation>Dette er dit stempelur. Vælg et job, og tryk på knappen for at stemple ind; tryk igen for at stemple ud. Vinduet er grønt, mens du er stemplet ind, og rødt, mens du er ude. Hver stempling skrives straks i din tidsdatabase.</translation>
    </message>
    <message>
        <source>Stemp in on the job shown, or stemp out</source>
        <translation>Stempl ind på det viste job, eller stempl ud</translation>
    </message>
    <message>
        <source>The time database cannot be written just now</source>
        <translation>Der kan ikke skrives i tidsdatabasen lige nu</translation>
    </message>
    <message>
        <source>Shown while your last stemps are not yet in your time database: it is locked, read-only, damaged or not there, or the disk is full. The line says where they are kept meanwhile. They are written to the time database as soon as it is possible, also by a later start. Keep the program open only if the line says that they are in memory alone.</source>
        <translation>Vises, mens dine seneste stemplinger endnu ikke står i din tidsdatabase: den er låst, skrivebeskyttet, beskadiget eller væk, eller disken er fuld. Linjen siger, hvor de gemmes imens. De skrives i tidsdatabasen, så snart det kan lade sig gøre, også ved en senere start. Lad kun programmet blive åbent, hvis linjen siger, at de alene er i hukommelsen.</translation>
    </message>
    <message>
        <source>Not saved yet - the program keeps trying</source>
        <translation>Endnu ikke gemt - programmet prøver igen</translation>
    </message>
    <message>
        <source>Stemps you in on the job in the box beside it or, while the list is dropped down, on the job selected there. While you are stemped in it stemps you out. The time is taken when you press it, is written to your time database, and your colleagues see your new state on the board.</source>
        <translation>Stempler dig ind på jobbet i feltet ved siden af eller, mens listen er slået ned, på det job, der er valgt i den. Mens du er stemplet ind, stempler knappen dig ud. Tidspunktet tages, når du trykker, og skrives i din tidsdatabase, og dine kolleger ser din nye status på tavlen.</translation>
    </message>
    <message>
        <source>&amp;In/Out</source>
        <translation>&amp;Ind/Ud</translation>
    </message>
    <message>
        <source>Enter search characters here</source>
        <translation>Skriv søgetegn her</translation>
    </message>
    <message>
        <source>Shows the current job. Click it to drop the job list down, then type some characters of the job&apos;s number or name: the list keeps the jobs that contain them, in capital or small letters. Press Down or Enter to go to the list, Escape to close it. For a job that stands in no list, close the list, type its number, a blank, a colon and its description here, such as &quot;T1 : First job&quot;, and press the button. Where Recent or Full List is chosen in the menu, the job is kept in your personal list.</source>
        <translation>Viser det aktuelle job. Klik i feltet for at slå joblisten ned, og skriv så nogle tegn af jobbets nummer eller navn: Listen beholder de job, der indeholder dem, med store eller små bogstaver. Tryk på Pil ned eller Enter for at gå til listen og på Escape for at lukke den. Står jobbet ikke på nogen liste, så luk listen, skriv jobbets nummer, et mellemrum, et kolon og beskrivelsen her, som &quot;T1 : Første job&quot;, og tryk på knappen. Er Seneste eller Hele listen valgt i menuen, gemmes jobbet på din personlige liste.</translation>
    </message>
    <message>
        <source>Current job and job search</source>
        <translation>Aktuelt job og jobsøgning</translation>
    </message>
    <message>
        <source>Your stemps of the last days, the newest at the bottom</source>
        <translation>Dine stemplinger de seneste dage, den nyeste nederst</translation>
    </message>
    <message>
        <source>Shows your time rows of the last days: the job, when you stemped in, when you stemped out and the job&apos;s description. Use it to look back over your work; the newest row stands at the bottom, and a row without an end is the one that you are stemped in on. Ctrl+C copies the selected rows. How many days are shown is set in the settings.</source>
        <translation>Viser dine tidsrækker for de seneste dage: jobbet, hvornår du stemplede ind, hvornår du stemplede ud, og jobbets beskrivelse. Brug den til at se tilbage over dit arbejde; den nyeste række står nederst, og en række uden sluttid er den, du er stemplet ind på. Ctrl+C kopierer de markerede rækker. Antallet af dage vælges i indstillingerne.</translation>
    </message>
    <message>
        <source>Roll-back grid</source>
        <translation>Tilbageblik</translation>
    </message>
    <message>
        <source>Click a job to stemp IN</source>
        <translation>Klik på et job for at stemple IND</translation>
    </message>
    <message>
        <source>Lists the recent, the personal or the company&apos;s jobs, as chosen in the menu, less those that do not match the search characters. Click a job, or select it with the arrow keys and press Enter, to stemp in on it; if you are already in, you are stemped out of the other job first. The job is kept in your personal list. Escape closes the list without stemping.</source>
        <translation>Viser de seneste, de personlige eller firmaets job, som valgt i menuen, undtagen dem, der ikke passer til søgetegnene. Klik på et job, eller vælg det med piletasterne og tryk på Enter, for at stemple ind på det; er du allerede inde, stemples du først ud af det andet job. Jobbet gemmes på din personlige liste. Escape lukker listen uden at stemple.</translation>
    </message>
    <message>
        <source>Job list</source>
        <translation>Jobliste</translation>
    </message>
    <message>
        <source>The window&apos;s icon while you are stemped in</source>
        <translation>Vinduets ikon, mens du er stemplet ind</translation>
    </message>
    <message>
        <source>The picture that the window and the taskbar show while you are stemped in. It changes by itself when you stemp; your data do not depend on it.</source>
        <translation>Billedet, som vinduet og proceslinjen viser, mens du er stemplet ind. Det skifter af sig selv, når du stempler; dine data afhænger ikke af det.</translation>
    </message>
    <message>
        <source>The window&apos;s icon while you are stemped out</source>
        <translation>Vinduets ikon, mens du er stemplet ud</translation>
    </message>
    <message>
        <source>The picture that the window and the taskbar show while you are stemped out. It changes by itself when you stemp; your data do not depend on it.</source>
        <translation>Billedet, som vinduet og proceslinjen viser, mens du er stemplet ud. Det skifter af sig selv, når du stempler; dine data afhænger ikke af det.</translation>
    </message>
    <message>
        <source>The window&apos;s icon while a new message waits</source>
        <translation>Vinduets ikon, mens en ny besked venter</translation>
    </message>
    <message>
        <source>One of the two pictures that alternate while an unread message from a colleague waits for you. Read the message on the board and the blinking stops.</source>
        <translation>Det ene af de to billeder, der skiftes, mens en ulæst besked fra en kollega venter på dig. Læs beskeden på tavlen, så holder det op med at blinke.</translation>
    </message>
    <message>
        <source>The window&apos;s icon between two blinks</source>
        <translation>Vinduets ikon mellem to blink</translation>
    </message>
    <message>
        <source>The other of the two pictures that alternate while an unread message from a colleague waits for you. Read the message on the board and the blinking stops.</source>
        <translation>Det andet af de to billeder, der skiftes, mens en ulæst besked fra en kollega venter på dig. Læs beskeden på tavlen, så holder det op med at blinke.</translation>
    </message>
    <message>
        <source>The board&apos;s icon while a message is shown</source>
        <translation>Tavlens ikon, mens en besked vises</translation>
    </message>
    <message>
        <source>The picture that the board shows while it holds a message for you. Click the message on the board when you have read it, and the usual picture comes back.</source>
        <translation>Billedet, som tavlen viser, mens den har en besked til dig. Klik på beskeden på tavlen, når du har læst den, så kommer det sædvanlige billede tilbage.</translation>
    </message>
    <message>
        <source>&amp;Recent</source>
        <translation>&amp;Seneste</translation>
    </message>
    <message>
        <source>Show the jobs of the last days</source>
        <translation>Vis de seneste dages job</translation>
    </message>
    <message>
        <source>Drops the list down with the jobs that you worked on in the last days. Use it to go back to a job of yesterday. Choosing it again closes the list; nothing is stemped before you pick a job.</source>
        <translation>Slår listen ned med de job, du har arbejdet på de seneste dage. Brug den til at vende tilbage til et job fra i går. Vælg punktet igen for at lukke listen; der stemples ikke, før du vælger et job.</translation>
    </message>
    <message>
        <source>&amp;Personal</source>
        <translation>&amp;Personlige</translation>
    </message>
    <message>
        <source>Show every job you have picked so far</source>
        <translation>Vis alle job, du har valgt indtil nu</translation>
    </message>
    <message>
        <source>Drops the list down with your personal jobs: every job that you have ever picked. Use it for jobs that you have not worked on lately. Choosing it again closes the list; nothing is stemped before you pick a job.</source>
        <translation>Slår listen ned med dine personlige job: alle job, du nogensinde har valgt. Brug den til job, du ikke har arbejdet på for nylig. Vælg punktet igen for at lukke listen; der stemples ikke, før du vælger et job.</translation>
    </message>
    <message>
        <source>&amp;Full List</source>
        <translation>&amp;Hele listen</translation>
    </message>
    <message>
        <source>Show the company&apos;s whole job list</source>
        <translation>Vis hele firmaets jobliste</translation>
    </message>
    <message>
        <source>Drops the list down with all jobs of the company; while the company database is out of reach, with those of the local copy, and where there is no company, with those of your own list. Use it for a job that is new to you; picking it adds it to your personal list. Choosing it again closes the list. It is grey while there is no job list, and does nothing while the list is empty.</source>
        <translation>Slår listen ned med alle firmaets job; når firmadatabasen ikke kan nås, med den lokale kopis, og hvor der ikke er noget firma, med din egen listes. Brug den til et job, der er nyt for dig; når du vælger det, føjes det til din personlige liste. Vælg punktet igen for at lukke listen. Det er gråt, når der ingen jobliste er, og gør intet, så længe listen er tom.</translation>
    </message>
    <message>
        <source>&amp;Summary</source>
        <translation>Op&amp;gørelse</translation>
    </message>
    <message>
        <source>Sum up your hours and print a timesheet</source>
        <translation>Opgør dine timer, og udskriv en timeseddel</translation>
    </message>
    <message>
        <source>Opens the summary of your hours for each job, or each job and day, between two dates. Use it at the end of the week or the month to print a timesheet or to copy the hours to another program. Your time rows stay as they are.</source>
        <translation>Åbner opgørelsen af dine timer for hvert job, eller for hvert job og hver dag, mellem to datoer. Brug den sidst på ugen eller måneden til at udskrive en timeseddel eller kopiere timerne til et andet program. Dine tidsrækker ændres ikke.</translation>
    </message>
    <message>
        <source>&amp;Notes</source>
        <translation>&amp;Noter</translation>
    </message>
    <message>
        <source>Write notes on your jobs</source>
        <translation>Skriv noter om dine job</translation>
    </message>
    <message>
        <source>Opens your dated notes on all jobs. Use them to remember what you did or agreed. Notes are kept in your own database and never go to the company&apos;s; where one file Stemp.mdb serves everyone on a machine, all of them see them.</source>
        <translation>Åbner dine daterede noter til alle job. Brug dem til at huske, hvad du har lavet eller aftalt. Noterne gemmes i din egen database og kommer aldrig i firmaets; hvor én fil Stemp.mdb bruges af alle på en maskine, ser de dem alle.</translation>
    </message>
    <message>
        <source>&amp;Create Job</source>
        <translation>Opret &amp;job</translation>
    </message>
    <message>
        <source>Add a job to the company&apos;s list</source>
        <translation>Føj et job til firmaets liste</translation>
    </message>
    <message>
        <source>Adds new jobs with their numbers and names to the company&apos;s job list, where all colleagues find them, or to your own list where there is no company. With a company list the entry is grey until the settings allow you to add jobs, and after a start without that list. A number that is used already is refused; look for the name yourself, so that no job stands in the list twice.</source>
        <translation>Føjer nye job med nummer og navn til firmaets jobliste, hvor alle kolleger finder dem, eller til din egen liste, hvor der ikke er noget firma. Med en firmaliste er punktet gråt, til indstillingerne tillader dig at tilføje job, og efter en start uden den liste. Et nummer, der allerede er brugt, afvises; se selv efter navnet, så intet job kommer til at stå to gange på listen.</translation>
    </message>
    <message>
        <source>&amp;Admin</source>
        <translation>&amp;Admin</translation>
    </message>
    <message>
        <source>Change the settings</source>
        <translation>Skift indstillingerne</translation>
    </message>
    <message>
        <source>Opens the settings: rounding, the days shown in the grid, tool tips, messages and the place of the company database. Changes count when you press OK there. Your time rows are not touched.</source>
        <translation>Åbner indstillingerne: afrunding, antal dage i tilbageblikket, værktøjstip, beskeder og firmadatabasens placering. Ændringer gælder, når du trykker på OK dér. Dine tidsrækker berøres ikke.</translation>
    </message>
    <message>
        <source>Job</source>
        <translation>Job</translation>
    </message>
    <message>
        <source>Stemped In</source>
        <translation>Stemplet ind</translation>
    </message>
    <message>
        <source>Stemped Out</source>
        <translation>Stemplet ud</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beskrivelse</translation>
    </message>
</context>
<context>
    <name>User</name>
    <message>
        <source>Stemp Your Initials, please</source>
        <translation>Stempl dine initialer, tak</translation>
    </message>
    <message>
        <source>The program does not know yet who you are. Type your initials, and your name if you like, and press OK; the program keeps your login with them and finds you by it at the next start. Your time rows are kept under these initials, and your colleagues see them on the board.</source>
        <translation>Programmet ved endnu ikke, hvem du er. Skriv dine initialer, og dit navn, hvis du vil, og tryk på OK; programmet gemmer dit login sammen med dem og finder dig ud fra det ved næste start. Dine tidsrækker gemmes under disse initialer, og dine kolleger ser dem på tavlen.</translation>
    </message>
    <message>
        <source>Your initials, without blanks at the ends</source>
        <translation>Dine initialer, uden mellemrum i enderne</translation>
    </message>
    <message>
        <source>The initials by which the program and your colleagues know you. Your time rows are kept in a file of that name, so take the same initials on every machine. They are turned into capital letters; characters that can&apos;t stand in a file name are refused.</source>
        <translation>De initialer, som programmet og dine kolleger kender dig under. Dine tidsrækker gemmes i en fil af det navn, så brug de samme initialer på alle maskiner. De laves om til store bogstaver; tegn, der ikke kan stå i et filnavn, afvises.</translation>
    </message>
    <message>
        <source>&amp;Initials:</source>
        <translation>&amp;Initialer:</translation>
    </message>
    <message>
        <source>Initials</source>
        <translation>Initialer</translation>
    </message>
    <message>
        <source>Your name; your login is suggested</source>
        <translation>Dit navn; dit login foreslås</translation>
    </message>
    <message>
        <source>Your name, as it is stored with your initials in the company&apos;s list of users; your login is suggested. You may write another name: the login is stored as well, and the program finds you by that at the next start.</source>
        <translation>Dit navn, som det gemmes sammen med dine initialer i firmaets brugerliste; dit login foreslås. Du må skrive et andet navn: Dit login gemmes også, og programmet finder dig ud fra det ved næste start.</translation>
    </message>
    <message>
        <source>&amp;Full name:</source>
        <translation>&amp;Fulde navn:</translation>
    </message>
    <message>
        <source>Full name</source>
        <translation>Fulde navn</translation>
    </message>
    <message>
        <source>Why the initials can&apos;t be used</source>
        <translation>Hvorfor initialerne ikke kan bruges</translation>
    </message>
    <message>
        <source>Says why the initials that you typed can&apos;t be used. Change them and press OK again. Nothing is stored before the initials are accepted.</source>
        <translation>Fortæller, hvorfor de initialer, du skrev, ikke kan bruges. Ret dem, og tryk på OK igen. Intet gemmes, før initialerne er godtaget.</translation>
    </message>
    <message>
        <source>Why the initials were refused</source>
        <translation>Hvorfor initialerne blev afvist</translation>
    </message>
    <message>
        <source>Use these initials</source>
        <translation>Brug disse initialer</translation>
    </message>
    <message>
        <source>Takes the initials and the name and goes on with the start. Press it, or Enter in either box, when both are right. If the initials can&apos;t be used, the window says why and stays.</source>
        <translation>Bruger initialerne og navnet og fortsætter starten. Tryk på den, eller på Enter i et af felterne, når begge er rigtige. Kan initialerne ikke bruges, siger vinduet hvorfor og bliver stående.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nej</translation>
    </message>
</context>
</TS>
