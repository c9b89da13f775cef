#pragma once

#include "cli/parser.h"

// The longer texts of `tarvix-cli --help` and of each command's help.
namespace tarvix::cli {

inline constexpr const char* kAbout =
    "Tarvix finds, lists, copies, moves, renames and recycles large groups of files by rule.\n"
    "This is the program without its windows, for terminals, timers and scripts.\n";

inline constexpr const char* kAboutFooter =
    "\nExamples:\n"
    "  tarvix-cli search \"*.mp3|*.flac\" --in ~/Music\n"
    "  tarvix-cli copy \"*.jpg\" --in ~/Pictures --since 2026-01-01 --to /media/ann/Backup --yes\n"
    "  tarvix-cli run nightly.txt\n"
    "\n"
    "tarvix-cli COMMAND --help tells all about a command.\n"
    "Ends with 0 when all is done as asked (duplicates skipped by rule included), 1 when objects\n"
    "failed, were left out or could not be read, 2 when the request is wrong, 3 when a question "
    "had\n"
    "no answer, and with 128 and the number of the signal when it was interrupted (130 by "
    "Ctrl+C):\n"
    "it stops at the next object then; a second Ctrl+C ends it at once.\n";

inline constexpr CommandHelp kSearch{
    "search", "Lists every file or folder that matches",
    "Lists every file or folder that matches a pattern and the criteria.\n"
    "\n"
    "A pattern without \".\", \"*\" and \"?\" is found anywhere in a name; several are separated "
    "by\n"
    "\"|\". Subfolders are searched too.\n",
    "\nExamples:\n"
    "  tarvix-cli search \"*.mp3|*.flac\" --in ~/Music\n"
    "  tarvix-cli search report --in ~/Documents /srv/archive --since 2026-01-01\n"
    "  tarvix-cli search \"*\" --in . --kind empty-folders\n"
    "  tarvix-cli search \"*.iso\" --in ~ --size-at-least 500M --print0 | xargs -0 ls -l\n"
    "  tarvix-cli search \"*.jpg\" --in ~/Pictures --json --columns Name,SizeSubItem\n"
    "\n"
    "Without an output option each row is its path on this machine, one a line. Results go to\n"
    "stdout, messages to stderr. Without an attribute option the boxes stand as the options\n"
    "say: at first, hidden, read-only and linked objects are not found. Nothing is asked.\n"
    "\n"
    "--json and --tsv print the columns that the options show unless --columns names others;\n"
    "Version, OS, Exe Type and the columns of links read each file.\n"};

inline constexpr CommandHelp kCopy{
    "copy", "Copies all that matches", "Finds objects as \"search\" does and copies all of them.\n",
    "\nExamples:\n"
    "  tarvix-cli copy \"*.mp3\" --in ~/Music --to /media/ann/Player/Music --yes\n"
    "  tarvix-cli copy \"*\" --in ~/Documents --structure backup --to /media/ann/Bk --dry-run\n"
    "  tarvix-cli copy \"*.jpg\" --in ~/Pictures --mpl Players.mpl --on-duplicate rename --yes\n"
    "  tarvix-cli copy \"cover.jpg\" --in ~/Music --to ~/Covers --name-from-folders 2 "
    "--on-duplicate rename\n"
    "\n"
    "none      the objects alone, side by side\n"
    "mirror    the same path on the drive of the destination\n"
    "folder    with the folders below the place where the search began\n"
    "backup    with the whole path, the drive as a folder\n"
    "\n"
    "Nothing is ever lost: what is overwritten goes to the trash first.\n"};

inline constexpr CommandHelp kMove{
    "move", "Moves all that matches",
    "Finds objects as \"search\" does and moves all of them. Hidden and system objects are copied\n"
    "instead, their originals stay.\n",
    "\nExamples:\n"
    "  tarvix-cli move \"*.iso\" --in ~/Downloads --to /srv/images --yes\n"
    "  tarvix-cli move \"*.mp3\" --in ~/Music --up 1 --with-folder-names --dry-run\n"
    "  tarvix-cli move \"*\" --in ~/Music --no-subfolders --rule 'C:\\home\\ann\\Sorted\\*19*' "
    "--yes\n"
    "\n"
    "In a rule, *19* is the 19th character of an object's own drive path, and |19,3| a folder\n"
    "whose name holds the 3 characters from there on.\n"};

inline constexpr CommandHelp kRename{
    "rename", "Renames all that matches in its place",
    "Finds objects as \"search\" does and renames all of them, each in its place. Files are "
    "renamed\n"
    "before folders; a name that is taken is never replaced. No text given here can take an "
    "object\n"
    "to another folder: a / in it is refused, a \\ becomes part of the name.\n",
    "\nExamples:\n"
    "  tarvix-cli rename \"*.mp3\" --in ~/Music --find \" - \" --replace _ --dry-run\n"
    "  tarvix-cli rename \"*.jpg\" --in ~/Pictures/2026 --insert \"2026 \" --at beginning --yes\n"
    "  tarvix-cli rename \"*\" --in ~/Scans --edit\n"
    "  tarvix-cli rename \"*.htm\" --in ~/Saved --from-title --dry-run\n"
    "  tarvix-cli rename \"*.mp3\" --in ~/Talks --from-links ~/Talks/index.html --yes\n"
    "  tarvix-cli rename \"*.txt\" --in ~/Mail --prefix-from senders.txt --yes\n"
    "\n"
    "--edit writes the names into a list, one a line, and opens it in $VISUAL or $EDITOR. Change "
    "the\n"
    "lines, but neither their number nor their order, save and leave the editor: the changes are "
    "shown\n"
    "and asked about, or done at once with --yes. Names may change places. When anything is wrong\n"
    "nothing is renamed, and the list is kept.\n"
    "\n"
    "A list without --whole-names has names without extensions and ends with the line *EOF; line "
    "k\n"
    "names the k-th object as \"search\" lists them, files before folders. A name that is taken "
    "gets a\n"
    "_ at its end there, as for titles, links and prefixes.\n"};

inline constexpr CommandHelp kDelete{
    "delete", "Sends all that matches to the trash",
    "Finds objects as \"search\" does and sends all of them to the trash, from which the file\n"
    "manager or \"gio trash --restore\" brings them back.\n",
    "\nExamples:\n"
    "  tarvix-cli delete \"*.tmp|*.bak\" --in ~/Documents --before 2025-12-31 --yes\n"
    "  tarvix-cli delete \"*\" --in ~/Music --kind empty-folders --dry-run\n"
    "  tarvix-cli delete \"*.part\" --in /media/ann/STICK --on-recycle-failure delete --yes\n"
    "\n"
    "Without --yes nothing is deleted. What can't go to the trash and what is hidden or a system\n"
    "object is asked about, which ends the command with 3 unless the options answer it. Folders\n"
    "together with files, or several folders, are warned of: that takes --answer Yes besides.\n"
    "A trash itself is never deleted.\n"};

inline constexpr CommandHelp kList{
    "list", "Writes a list of all that matches",
    "Finds objects as \"search\" does and writes a list of them: paths, names, a Multiple Path\n"
    "List, a web page, or what shortcuts lead to.\n",
    "\nExamples:\n"
    "  tarvix-cli list \"*.pdf\" --in ~/Documents\n"
    "  tarvix-cli list \"*.pdf\" --in ~/Documents --as names --to ~/papers.txt\n"
    "  tarvix-cli list \"*\" --in /srv/music --kind folders --as mpl --to ~/artists.mpl\n"
    "  tarvix-cli list \"*.jpg\" --in ~/Pictures --as html --text N --to ~/Pictures/all.htm\n"
    "  tarvix-cli list \"*.lnk\" --in /media/ann/OLD --as targets\n"
    "\n"
    "A file that stands already is replaced only with --yes, and only when the new one is whole.\n"
    "A list of paths in a file has a second one beside it, \"NAME Extra Path Only\", with the\n"
    "folders alone. In a file lines end in CR LF, on stdout in LF. A path with a line break can't\n"
    "stand in a list: it is told and left out, and the command ends with 1.\n"};

inline constexpr CommandHelp kLinks{
    "links", "Shows, edits and checks what shortcuts hold",
    "Finds .lnk, .url and .desktop files as \"search\" does, and shows, edits or checks what they\n"
    "hold: target, arguments, working folder, hot key, window style, description and icon.\n",
    "\nExamples:\n"
    "  tarvix-cli links show --in ~/.local/share/applications --json\n"
    "  tarvix-cli links check --in ~/.wine/drive_c --any-attribute\n"
    "  tarvix-cli links set \"*.lnk\" --in /media/ann/OLD --target-from 'C:\\old' --target-to "
    "'D:\\new' "
    "--dry-run\n"
    "  tarvix-cli links edit --in ~/Links --to links.txt\n"
    "  tarvix-cli links apply links.txt\n"
    "\n"
    "The text has a record of lines for each shortcut, \"Name = \" first: keep their order. Beside "
    "it\n"
    "stands FILE.original, by which \"apply\" knows what was changed. Each shortcut is put in its\n"
    "place whole, its old version goes to the trash as \"NAME (before edit)\". What another "
    "program\n"
    "changed meanwhile is left alone. \"check\" ends with 1 when a target is missing.\n"};

inline constexpr CommandHelp kPlaylist{
    "playlist", "Writes a playlist of all that matches",
    "Finds objects as \"search\" does and writes an M3U playlist of them, in the order of names.\n",
    "\nExamples:\n"
    "  tarvix-cli playlist \"*.mp3|*.flac\" --in ~/Music/Jazz --to ~/jazz.m3u\n"
    "  tarvix-cli playlist \"*.mp3\" --in ~/Music/1987 --relative --to ~/Music/1987.m3u\n"
    "  tarvix-cli playlist 1987 --in ~/Music/Years --comments --to ~/Music/1987.m3u --yes\n"
    "\n"
    "--comments takes a search for one year, such as 1987, whose files are named YYYY-RRR (year\n"
    "and rank): the ranks that are missing stand as comments where they belong. --similar looks "
    "for\n"
    "the same songs under other names; the playlist mode of the window works with what it "
    "found.\n"};

inline constexpr CommandHelp kNumbers{
    "numbers", "Writes a list of numbered lines",
    "Writes one line for each number, from one to another.\n",
    "\nExamples:\n"
    "  tarvix-cli numbers --from 1 --until 12 --format 0# --line \"Chapter *\"\n"
    "  tarvix-cli numbers --from 1980 --until 2026 --eof --to years.txt\n"
    "\n"
    "The first * of the line is the number's place. In the format 0 is a digit that is always\n"
    "there and # one that may be: 00# gives 007.\n"};
inline constexpr CommandHelp kAutoMove{
    "auto-move", "Moves by a list of patterns and a list of folders",
    "For each line of a list of patterns, finds objects as \"search\" does and moves all of them "
    "to\n"
    "the folder in the same line of a list of folders. Nothing is asked meanwhile: a question "
    "that\n"
    "would come gets its safe answer, is logged and counted.\n",
    "\nExamples:\n"
    "  tarvix-cli auto-move --in ~/Inbox --searches kinds.txt --destinations folders.txt "
    "--dry-run\n"
    "  tarvix-cli auto-move --in ~/Inbox --searches kinds.txt --destinations folders.txt --yes\n"
    "\n"
    "Both lists end with a line *EOF. A list of folders that ends with *REPEAT instead starts "
    "over,\n"
    "so that 16 patterns can go to 4 folders in turn; the mark counts as a line, whose step is "
    "left\n"
    "out with an error. A missing folder is made. Ends with 0 when every step was done, "
    "duplicates\n"
    "skipped by rule included, and with 1 when a step was left out or an object failed.\n"};

inline constexpr CommandHelp kAutoPlaylist{
    "auto-playlist", "Writes a playlist for each pattern of a list",
    "For each line of a list of patterns, finds objects as \"search\" does and writes what it "
    "finds\n"
    "into a playlist of its own, named PATTERN_HHMMSS.m3u without wildcards.\n",
    "\nExamples:\n"
    "  tarvix-cli auto-playlist --searches years.txt --to ~/Playlists --in ~/Music\n"
    "  tarvix-cli auto-playlist --searches years.txt --folders shelves.txt --local "
    "--no-subfolders\n"
    "\n"
    "With --folders each folder of that list is searched for each pattern, and the playlist lies\n"
    "there. Both lists end with a line *EOF. Nothing found writes no playlist and is no error.\n"
    "Ends with 0 when every step was done, and with 1 when a folder is missing, a playlist could\n"
    "not be written, or something could not be read.\n"};

inline constexpr CommandHelp kShowPages{
    "show-pages", "Shows web pages in turn in the default browser",
    "Opens the addresses of a list one after the other, each for so many seconds.\n",
    "\nExample:\n"
    "  tarvix-cli show-pages pages.txt --seconds 8\n"
    "\n"
    "The list ends with a line *EOF, or with *REPEAT, which ends here too. A browser that was\n"
    "started for a page is ended before the next; one that runs already takes each page into a "
    "tab\n"
    "or window of its own, and is left alone. Ends with 1 when a page could not be opened.\n"};

inline constexpr CommandHelp kOpen{
    "open", "Opens objects with the desktop's applications",
    "Opens each object with the application that the desktop has for it, or all of them with one "
    "that\n"
    "you name. With --in the words are patterns, and all that is found there is opened.\n",
    "\nExamples:\n"
    "  tarvix-cli open ~/Documents/report.odt ~/Pictures\n"
    "  tarvix-cli open *.jpg --with gimp\n"
    "  tarvix-cli open \"*.flac\" --in ~/Music/Album --with \"vlc --one-instance\"\n"
    "  tarvix-cli open \"*.pdf\" --in . --dry-run\n"
    "\n"
    "A shortcut opens what it leads to; a program is opened by run-program alone. Programs begin\n"
    "in the first default search folder and outlive this one; their output goes nowhere.\n"
    "--dry-run tells each command as a shell reads it. Ends with 1 when one could not be "
    "opened.\n"};

inline constexpr CommandHelp kRunProgram{
    "run-program", "Runs one program of this machine",
    "Runs a program or a script that has the right to run, as \"Run a Program\" in the Run menu "
    "does.\n",
    "\nExamples:\n"
    "  tarvix-cli run-program ~/bin/tidy-up.sh\n"
    "  tarvix-cli run-program ~/Downloads/setup.exe --yes\n"
    "\n"
    "An .exe is started by what the desktop has for such files, such as Wine, once --yes confirms\n"
    "it. Ends with 2 for what is no program, and with 1 for one that can't be started.\n"};

inline constexpr CommandHelp kMakeFolders{
    "make-folders", "Makes folders by numbers or by a list",
    "Makes many folders in one: numbered, counted by digits and letters, or named by a list.\n",
    "\nExamples:\n"
    "  tarvix-cli make-folders --in ~/Scans --from 1 --count 12\n"
    "  tarvix-cli make-folders --in /srv/shelf --from A --to ZZ\n"
    "  tarvix-cli make-folders --in ~/Music --list artists.txt\n"
    "\n"
    "Numbers are all as long as the last one. Counted names go from 0 to ZZZ, by the digits 0 to "
    "9\n"
    "and A to Z. A list has one name a line and ends in the line *EOF. Nothing that stands "
    "already\n"
    "is touched; names that are taken or refused are told, and the command ends with 1.\n"};

inline constexpr CommandHelp kRun{
    "run", "Runs a script that drives the whole program",
    "Runs a script that drives the whole program by the names of its controls.\n",
    "\nOne statement a line; a line that begins with # is a comment.\n"
    "  set CONTROL = VALUE          enters a value as a user would\n"
    "  click CONTROL                presses a button, menu entry, box or option\n"
    "  leave CONTROL                goes on to another control\n"
    "  reset CONTROL                sets an option of the options window back\n"
    "  column KEY                   clicks a column head\n"
    "  select N N-M ... | like PATTERN | none\n"
    "                               selects rows, counted from 1 as listed\n"
    "  doubleclick N                double-clicks a row\n"
    "  rightclick N                 opens the menu of the selected rows, with that row\n"
    "                               alone if it isn't one of them\n"
    "  answer VALUE                 answers the next prompt: a button, a control, or a text\n"
    "  after N yields click CONTROL clicks during the next long loop\n"
    "  dump lstMain [KEY ...] | CONTROL | prompts | log | errorlog\n"
    "                               prints\n"
    "A bare control name is one of the form on top; frmDialog.cmbDir names another form.\n"
    "In the window, File > Record a Script writes such a script of what you do.\n"
    "\nExample:\n"
    "  tarvix-cli run - <<'END'\n"
    "  set cmbSearchFor = *.mp3\n"
    "  set cmbDir = /home/ann/Music\n"
    "  click cmdSearch\n"
    "  dump lstMain Name SizeSubItem\n"
    "  END\n"};

inline constexpr CommandHelp kSample{
    "sample", "Makes a small collection to try things on",
    "Makes a small collection of music, documents and photos to try things on.\n",
    "\nExample:\n"
    "  tarvix-cli sample ~/tarvix-sample\n"
    "\nThe folder is made if it is missing; one that holds anything is refused.\n"};

inline constexpr CommandHelp kPaths{
    "paths", "Tells where everything lies",
    "Tells where options, histories and logs lie: name, tab and path on each line.\n",
    "\nExample:\n"
    "  less \"$(tarvix-cli paths --json | jq -r '.[\"Error log\"]')\"\n"
    "\nNothing is made or changed. --data-folder and TARVIX_DATA_FOLDER choose another folder.\n"};

inline constexpr CommandHelp kOptions{
    "options", "Lists, tells and sets options",
    "Lists all options, tells one, or sets one. With no word it lists them.\n",
    "\nExamples:\n"
    "  tarvix-cli options list\n"
    "  tarvix-cli options get bytArchive\n"
    "  tarvix-cli options set blnSort True\n"
    "  tarvix-cli options set \"blnListItems (OSSubItem)\" False\n"
    "  tarvix-cli options set \"strDefSearchFolder(1)\" \"~/Music|/srv/music[Music\"\n"
    "  tarvix-cli options set \"Drive E:\" /srv/collection\n"
    "  tarvix-cli options set ListPathForm drive\n"
    "\nClose Tarvix first: a running one writes its own options when it closes.\n"};

} // namespace tarvix::cli
