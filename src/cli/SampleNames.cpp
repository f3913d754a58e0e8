#include "SampleNames.h"

#include <fmt/format.h>

#include <iterator>

namespace SampleNames {

namespace {

constexpr TFirstName FirstNameTable[] = {
    {"Aaliyah", u'W'},    {"Ali", u'M'},       {"Amelie", u'W'},  {"Anna", u'W'},     {"Anton", u'M'},
    {"Arda", u'M'},       {"Ayşe", u'W'},      {"Bastian", u'M'}, {"Ben", u'M'},      {"Björn", u'M'},
    {"Carla", u'W'},      {"Charlotte", u'W'}, {"Clara", u'W'},   {"Conrad", u'M'},   {"Daniel", u'M'},
    {"David", u'M'},      {"Elif", u'W'},      {"Elias", u'M'},   {"Ella", u'W'},     {"Emil", u'M'},
    {"Emilia", u'W'},     {"Emma", u'W'},      {"Fabian", u'M'},  {"Felix", u'M'},    {"Finn", u'M'},
    {"Frieda", u'W'},     {"Gustav", u'M'},    {"Hanna", u'W'},   {"Hannes", u'M'},   {"Henri", u'M'},
    {"Ida", u'W'},        {"Irina", u'W'},     {"Jakob", u'M'},   {"Jana", u'W'},     {"Jannis", u'M'},
    {"Jette", u'W'},      {"Jonas", u'M'},     {"Jördis", u'W'},  {"Josefine", u'W'}, {"Julian", u'M'},
    {"Jürgen", u'M'},     {"Käthe", u'W'},     {"Karl", u'M'},    {"Kim", u'D'},      {"Lara", u'W'},
    {"Lea", u'W'},        {"Lena", u'W'},      {"Leon", u'M'},    {"Leonie", u'W'},   {"Levin", u'M'},
    {"Lina", u'W'},       {"Linus", u'M'},     {"Louis", u'M'},   {"Luca", u'M'},     {"Luise", u'W'},
    {"Maja", u'W'},       {"Malte", u'M'},     {"Marie", u'W'},   {"Mats", u'M'},     {"Matilda", u'W'},
    {"Maximilian", u'M'}, {"Mehmet", u'M'},    {"Mia", u'W'},     {"Mika", u'D'},     {"Mila", u'W'},
    {"Mohammed", u'M'},   {"Moritz", u'M'},    {"Nele", u'W'},    {"Niklas", u'M'},   {"Noah", u'M'},
    {"Oskar", u'M'},      {"Paul", u'M'},      {"Paula", u'W'},   {"Pauline", u'W'},  {"Philipp", u'M'},
    {"Quentin", u'M'},    {"René", u'M'},      {"Ronja", u'W'},   {"Rosalie", u'W'},  {"Samuel", u'M'},
    {"Sarah", u'W'},      {"Sophie", u'W'},    {"Sören", u'M'},   {"Theo", u'M'},     {"Thuy Linh", u'W'},
    {"Tim", u'M'},        {"Tomasz", u'M'},    {"Uwe", u'M'},     {"Valentin", u'M'}, {"Vincent", u'M'},
    {"Wiebke", u'W'},     {"Xenia", u'W'},     {"Yara", u'W'},    {"Yusuf", u'M'},    {"Zoë", u'W'}};

constexpr std::string_view SurnameTable[] = {
    "Müller",   "Schmidt",  "Schneider", "Fischer",    "Weber",    "Meyer",    "Wagner",        "Becker",
    "Schulz",   "Hoffmann", "Schäfer",   "Koch",       "Bauer",    "Richter",  "Klein",         "Wolf",
    "Schröder", "Neumann",  "Schwarz",   "Zimmermann", "Braun",    "Krüger",   "Hofmann",       "Hartmann",
    "Lange",    "Schmitt",  "Werner",    "Schmitz",    "Krause",   "Meier",    "Lehmann",       "Schmid",
    "Schulze",  "Maier",    "Köhler",    "Herrmann",   "König",    "Walter",   "Mayer",         "Huber",
    "Kaiser",   "Fuchs",    "Peters",    "Lang",       "Scholz",   "Möller",   "Weiß",          "Jung",
    "Hahn",     "Schubert", "Vogel",     "Friedrich",  "Keller",   "Günther",  "Frank",         "Berger",
    "Winkler",  "Roth",     "Beck",      "Lorenz",     "Baumann",  "Franke",   "Albrecht",      "Schuster",
    "Simon",    "Ludwig",   "Böhm",      "Winter",     "Kraus",    "Martin",   "Schumacher",    "Krämer",
    "Vogt",     "Stein",    "Jäger",     "Otto",       "Sommer",   "Groß",     "Seidel",        "Heinrich",
    "Brandt",   "Haas",     "Schreiber", "Graf",       "Dietrich", "Ziegler",  "Kuhn",          "Kühn",
    "Pohl",     "Engel",    "Horn",      "Busch",      "Bergmann", "Thomas",   "Voigt",         "Sauer",
    "Arnold",   "Wolff",    "Pfeiffer",  "Heß",        "Strauß",   "Preuß",    "Nußbaum",       "Özdemir",
    "Yılmaz",   "Şahin",    "Kaya",      "Demir",      "Nguyen",   "Tran",     "Kowalski",      "Wójcik",
    "Nowak",    "Horváth",  "Novák",     "Popović",    "Petrov",   "Ivanova",  "Rossi",         "García",
    "Lefèvre",  "O’Brien",  "El Amrani", "Al-Hassan",  "van Dijk", "de Vries", "von der Heide", "von Arnim",
    "vom Berg", "zu Rhein", "Aßmann",    "Übelhör"};

constexpr TSubject SubjectTable[] = {{"D", "Deutsch"},
                                     {"E", "Englisch"},
                                     {"M", "Mathematik"},
                                     {"F", "Französisch"},
                                     {"L", "Latein"},
                                     {"S", "Spanisch"},
                                     {"Bi", "Biologie"},
                                     {"Ch", "Chemie"},
                                     {"Ph", "Physik"},
                                     {"If", "Informatik"},
                                     {"Ge", "Geschichte"},
                                     {"Ek", "Erdkunde"},
                                     {"Pk", "Politik und Wirtschaft"},
                                     {"Ku", "Kunst"},
                                     {"Mu", "Musik"},
                                     {"Sp", "Sport"},
                                     {"eR", "Evangelische Religionslehre"},
                                     {"kR", "Katholische Religionslehre"},
                                     {"Et", "Ethik"},
                                     {"Te", "Technik"},
                                     {"Hw", "Hauswirtschaft"},
                                     {"Ds", "Darstellendes Spiel"},
                                     {"Ru", "Russisch"},
                                     {"Pl", "Philosophie"}};

constexpr TText TeacherTable[] = {{"MUE", "Müller, Jürgen"},     {"HOF", "Hofmann, Sabine"},
                                  {"KRÜ", "Krüger, Katharina"},  {"WEI", "Weiß, Thomas"},
                                  {"SCH", "Schröder, Anke"},     {"ÖZD", "Özdemir, Leyla"},
                                  {"BAU", "Baumann, Friedrich"}, {"LOR", "Lorenz-Böhm, Ursula"},
                                  {"VDH", "von der Heide, Uwe"}, {"KOW", "Kowalski, Piotr"}};

constexpr TText RemarkTable[] = {
    {"SV", "hat als Mitglied der Schülervertretung Verantwortung für die Schulgemeinschaft übernommen."},
    {"KS", "hat das Amt der Klassensprecherin oder des Klassensprechers zuverlässig ausgeübt."},
    {"CHOR", "hat mit Erfolg im Schulchor mitgewirkt."},
    {"ORCH", "hat mit Erfolg im Schulorchester mitgewirkt."},
    {"SAN", "hat am Schulsanitätsdienst teilgenommen und die Ausbildung in Erster Hilfe abgeschlossen."},
    {"PATE", "hat als Patin oder Pate die Kinder der fünften Klassen begleitet."},
    {"MATH", "hat erfolgreich an der Mathematik-Olympiade teilgenommen."},
    {"JTFO", "hat die Schule bei „Jugend trainiert für Olympia“ vertreten."},
    {"LRS",
     "Die Rechtschreibleistungen wurden wegen einer festgestellten Lese-Rechtschreib-Schwierigkeit nicht "
     "bewertet."},
    {"VERS", "Die Versetzung ist gefährdet."},
    {"NACH", "Die Leistungen konnten wegen längerer Erkrankung nicht in allen Fächern beurteilt werden."},
    {"PRAK", "hat ein dreiwöchiges Betriebspraktikum mit gutem Erfolg abgeleistet."},
    {"AUST", "hat an einem Schüleraustausch mit unserer Partnerschule in Rouen teilgenommen."},
    {"HAUS", "Hausaufgaben und Arbeitsmittel lagen häufig nicht vor."}};

constexpr TText AssessmentTable[] = {
    {"A1", "{} arbeitet aufmerksam mit und bringt eigene Gedanken in das Unterrichtsgespräch ein."},
    {"A2", "{} erledigt Aufgaben selbständig und sorgfältig; das Heft ist stets vollständig geführt."},
    {"A3", "{} zeigt gute Kenntnisse, sollte sich aber öfter zu Wort melden."},
    {"A4", "{} hat sichtbare Fortschritte gemacht.\nBeim Rechnen mit größeren Zahlen hilft noch regelmäßiges Üben."},
    {"A5", "{} benötigt bei neuen Inhalten Unterstützung und lässt sich leicht ablenken."},
    {"A6", "{} arbeitet in Gruppen hilfsbereit und übernimmt gern Verantwortung."},
    {"A7", "{} liest flüssig, versteht auch längere Texte und gibt sie treffend mit eigenen Worten wieder."},
    {"A8", "{} erreicht die Lernziele überwiegend; die schriftlichen Leistungen schwanken noch."}};

/// The years of the school, in order.
struct TYear {
  std::string_view Name;
  TMarking Marking;
  int Age;
};
constexpr TYear Years[] = {{"5", TMarking::Texts, 11},   {"6", TMarking::Texts, 12},   {"7", TMarking::Values, 13},
                           {"8", TMarking::Values, 14},  {"9", TMarking::Values, 15},  {"10", TMarking::Values, 16},
                           {"EF", TMarking::Points, 17}, {"Q1", TMarking::Points, 18}, {"Q2", TMarking::Points, 19}};

}  // namespace

std::span<const TFirstName> FirstNames() {
  return FirstNameTable;
}

std::span<const std::string_view> Surnames() {
  return SurnameTable;
}

std::span<const TSubject> Subjects() {
  return SubjectTable;
}

std::span<const TText> Teachers() {
  return TeacherTable;
}

std::span<const TText> Remarks() {
  return RemarkTable;
}

std::span<const TText> Assessments() {
  return AssessmentTable;
}

std::string Surname(TSampleRandom& random) {
  std::string name(random.Pick(Surnames()));
  if (!random.Chance(6)) return name;
  const std::string_view second = random.Pick(Surnames());
  return name == second || name.find(' ') != name.npos ? name : fmt::format("{}-{}", name, second);
}

std::pair<std::string, char16_t> FirstName(TSampleRandom& random) {
  const TFirstName& first = random.Pick(FirstNames());
  std::string name(first.Name);
  if (!random.Chance(10)) return {name, first.Gender};
  const TFirstName& second = random.Pick(FirstNames());
  if (second.Gender != first.Gender || second.Name == name) return {name, first.Gender};
  return {fmt::format("{} {}", name, second.Name), first.Gender};
}

std::vector<TSchoolClass> Classes(int count) {
  constexpr int years = static_cast<int>(std::size(Years));
  const auto yearOf = [count](int i) { return i < count ? (i * years + years / 2) / count : years; };
  std::vector<TSchoolClass> result;
  int inYear = 0;
  for (int i = 0; i < count; ++i) {
    inYear = i > 0 && yearOf(i - 1) == yearOf(i) ? inYear + 1 : 0;
    const TYear& year = Years[yearOf(i)];
    const bool alone = inYear == 0 && yearOf(i + 1) != yearOf(i);
    const bool letterless = alone && year.Marking == TMarking::Points;
    const std::string suffix =
        inYear < 26 ? std::string(1, static_cast<char>('a' + inYear)) : fmt::format(".{}", inYear);
    result.push_back(
        {letterless ? std::string(year.Name) : fmt::format("{}{}", year.Name, suffix), year.Marking, year.Age});
  }
  return result;
}

}  // namespace SampleNames
