#include "browsers/Keywords.h"

#include "base/VbText.h"
#include "browsers/Meanings.h"

namespace kal {

const std::array<std::array<std::string_view, KeywordColumns>, KeywordRows> KeywordGrid = {{
    {"Sun", "Aries", "1st house", "Fire"},
    {"Moon", "Taurus", "2nd house", "Earth"},
    {"Mercury", "Gemini", "3rd house", "Air"},
    {"Venus", "Cancer", "4th house", "Water"},
    {"Mars", "Leo", "5th house", ""},
    {"Jupiter", "Virgo", "6th house", "Cardinal"},
    {"Saturn", "Libra", "7th house", "Fixed"},
    {"Uranus", "Scorpio", "8th house", "Common"},
    {"Neptune", "Sagittarius", "9th house", ""},
    {"Pluto", "Capricorn", "10th house", "General 1"},
    {"Aspects", "Aquarius", "11th house", "General 2"},
    {"Symbolism", "Pisces", "12th house", "General 3"},
}};

namespace {

struct PlanetOrSignKeywords {
    std::string_view topic;
    std::string_view meaning;
    std::string_view best;
    std::string_view worst;
    std::string_view thought;
};

struct TopicText {
    std::string_view topic;
    std::string_view text;
};

// For a sign the meaning completes "In the house where <sign> rules the
// cusp is where:".
const PlanetOrSignKeywords PlanetKeywords[] = {
    {"Sun",
     "Your ego, the inner you, your essence, the unchanging part of you - the calm, "
     "steady, deep and lasting force felt within you, enabling you to exert "
     "willpower, make decisions and direct all the other parts (planets) of your life.",
     "Best quality: Rulership", "Worst quality: Dictativeness", "Thought series: Power"},
    {"Moon",
     "Your emotional responses based on past experiences and unconscious habit "
     "patterns that you have developed. It comprises all the little surface "
     "peculiarities, moods and changes which have to do with physical life which are "
     "disturbing, fleeting and changing. The Moon represents your greatest need.",
     "Best quality: Adaptability", "Worst quality: Inconstancy", "Thought series: Domestic"},
    {"Mercury",
     "Your capacity to collect, sort, classify and communicate the knowledge you gain "
     "through your experiences and your senses. It also analyzes and discards what is "
     "unnecessary.",
     "Best quality: Expression", "Worst quality: Restlessness", "Thought series: Intellectual"},
    {"Venus",
     "Your capacity to attract and appreciate the things of the world, whether they "
     "are emotional, physical, mental or spiritual things. It defines the type of "
     "people you draw to yourself, based on your social values.",
     "Best quality: Affection",
     "Worst quality: Pliancy (bending too easily, taking the easy way out)",
     "Thought series: Social"},
    {"Mars",
     "Your desires and aspirations for emotional, physical, mental and spiritual "
     "things which stimulate activity.  You have to want something before you reach "
     "out and take it.",
     "Best quality: Initiative", "Worst quality: Harshness", "Thought series: Aggressive"},
    {"Jupiter",
     "The urge for self-improvement through participation in the larger whole. It "
     "urges you to go forth exploring life. It also represents the opportunities for "
     "you in your life and how you need to be rewarded for your efforts.",
     "Best quality: Benevolence (kindness)", "Worst quality: Conceit", "Thought series: Religious"},
    {"Saturn",
     "Your ability to find your place in society and function there at a practical "
     "level (referred to as your society ego). It is the laws, boundaries and limits "
     "set by society or karma. It also represents discipline and ambition.",
     "Best quality: System and organization", "Worst quality: Selfishness",
     "Thought series: Safety"},
    {"Uranus",
     "The unconscious urge to become aware of your true inner individuality (the "
     "Sun). It is your intuition awakening you to a world beyond our social "
     "structure.  Uranus forces sudden changes when the usefulness of the old is gone "
     "and something newer, something higher and better is ready to take its place. "
     "Freedom.",
     "Best quality: Originality", "Worst quality: Eccentricity", "Thought series: Individualistic"},
    {"Neptune",
     "The unconscious urge to dissolve the boundaries of your ego-centeredness in "
     "order to 'lose yourself' in the 'kingdom of God' within . . . Your "
     "superconscious. It dissolves life's patterns in order to teach new meanings in "
     "the quest for universal wisdom. Neptune represents things that aren't quite as "
     "they appear, the illusive, the unreal.",
     "Best quality: Idealism", "Worst quality: Vagueness", "Thought series: Utopian"},
    {"Pluto",
     "The unconscious urge to transform repressed ego-desire energies into "
     "group-desire energies in order to live out your role in society's evolution. "
     "Pluto will force you to transform those things in your life that require "
     "regeneration.",
     "Best quality: Spirituality", "Worst quality: Inversion (turning things upside down)",
     "Thought series: Universal welfare"},
};
const PlanetOrSignKeywords SignKeywords[] = {
    {"Aries",
     "you need to grow and develop. There is a need to learn and discover for "
     "yourself. New things will be started all the time.",
     "Best quality: Leadership",
     "Worst quality: Officiousness (minding other people's business, meddling)",
     "Thought series: Egotistical"},
    {"Taurus",
     "you need to learn a sense of values and also to be productive and to see the "
     "actual results of your productivity.",
     "Best quality: Stability", "Worst quality: Obstinacy", "Thought series: Possessive"},
    {"Gemini",
     "you need to obtain a variety of experiences and be curious or inquisitive. Your "
     "curiosity will help you grow through experience.",
     "Best quality: Versatility", "Worst quality: Changeableness", "Thought series: Thought"},
    {"Cancer",
     "you need growth through instruction and training. The instruction may prove "
     "painful, but it is necessary in order for you to be able to express the "
     "positive qualities of your Sun sign.",
     "Best quality: Tenacity", "Worst quality: Touchiness", "Thought series: Feeling"},
    {"Leo",
     "you feel a need for personal development. If you are using the positive "
     "qualities of your Sun sign in the affairs of this house, you will feel a deep "
     "sense of inner peace and contentment.",
     "Best quality: Kindness", "Worst quality: Domination", "Thought series: Will"},
    {"Virgo",
     "you need to separate the wheat from the chaff. There is a need to analyze your "
     "feelings with regard to the affairs of the house in a practical, unemotional "
     "manner. Be discriminating.",
     "Best quality: Analysis", "Worst quality: Criticism", "Thought series: Analytical"},
    {"Libra",
     "you have been 'out of balance' in previous lifetimes. You need to be adaptable "
     "with regard to the affairs of this house, with a strong need to see both sides "
     "before any decision is made.",
     "Best quality: Affability", "Worst quality: Approbation (always needing approval)",
     "Thought series: Equilibrium"},
    {"Scorpio",
     "there is an emotional need for intense involvement and secrecy in order to "
     "fulfill your subconscious needs and those of others. You will have an intense "
     "approach to the affairs of this house.",
     "Best quality: Resourcefulness", "Worst quality: Troublesomeness", "Thought series: Desire"},
    {"Sagittarius",
     "you need to expand your experiences. You have felt limited in the affairs of "
     "this house in previous lifetimes, so you now need to explore many of the areas "
     "governed by this house. Don't overexpand.",
     "Best quality: Loyalty", "Worst quality: Sportiveness", "Thought series: Comprehension"},
    {"Capricorn",
     "you need respect and recognition from others. Do not actively pursue this "
     "recognition for it can only be earned through merit. There is always a feeling "
     "of frustration with regard to the affairs of the house ruled by Capricorn.",
     "Best quality: Diplomacy", "Worst quality: Deceitfulness", "Thought series: Utility"},
    {"Aquarius",
     "you need to obtain new knowledge in order to break down old ideas from past "
     "lifetimes.",
     "Best quality: Altruism", "Worst quality: Argumentation", "Thought series: Knowledge"},
    {"Pisces",
     "you need to allow your intuition to guide you, for you will feel as if you are "
     "acting blindly. No one can give you proof for the affairs of this house so "
     "allow yourself to be guided by your intuition.",
     "Best quality: Sympathy", "Worst quality: Worry", "Thought series: Belief"},
};
const TopicText OtherKeywords[] = {
    {"Fire", "Inspiration, spiritual power, impulse, drive, dynamic energy, enthusiasm, "
             "motivation of power and conviction. The leader."},
    {"Earth", "Practicality, materialism, values, objective activity. The builder."},
    {"Air", "Intellectual and social inclinations, communication, relationships, thinking, "
            "planning. The communicator."},
    {"Water", "Emotions, spiritual and psychic qualities, subjective phase of human nature, "
              "desire. The nurturer."},
    {"Cardinal", "Initiates action, forceful activity, concerned about the here and now, lives in "
                 "the moment, starts things."},
    {"Fixed", "Determined, persistent, stable, stubborn, slow to change, gives willpower and "
              "fixity of purpose, goal and future-oriented, keeps things going."},
    {"Common", "Flexible, adaptable, uses lessons from past experience to make decisions now, "
               "jumps from thing to thing, may live in the past."},
    {"1st house", "Self-awareness, physical body, personality, personal views on life, "
                  "self-identity, self-image, early environment."},
    {"2nd house",
     "Money and possessions, values, hidden talents, sense of self-worth, self-esteem."},
    {"3rd house", "Community, relatives, neighbors, short journeys, lower mind, communications, "
                  "knowledge, early education."},
    {"4th house", "The home (the one you make), land, father, new beginnings and end of life, "
                  "personal foundations (inner emotional security and self-image)."},
    {"5th house", "Pursuit of pleasure, personal interests, love affairs, sports, hobbies, "
                  "speculation, teaching, children, drama, creative self-expression, love given, "
                  "gambling, publications."},
    {"6th house", "Work, service, diet, clothes, physical sickness, physical ability to work, "
                  "employees."},
    {"7th house", "Marriage, partnerships, open enemies, contracts, group awareness, cooperative "
                  "relationships, law suits."},
    {"8th house", "Regeneration, death, taxes, inheritances, sexual energies, latent occult "
                  "ability, joint resources, partner's money and possessions, personal sacrifices, "
                  "alimony, clairvoyance."},
    {"9th house",
     "Philosophy, religion, law, higher education, ethics, morals, long journeys, "
     "spiritual urges, dreams, higher mind, ideas, understanding and wisdom, in-laws."},
    {"10th house",
     "Profession, mother, reputation, honors, standing in the community, social "
     "foundations, recognition, personal achievements, authority figures, politicians."},
    {"11th house", "Friends, hopes, goals, ambitions, wishes, social groups, associations, love "
                   "received, partner's children, humanitarian interests."},
    {"12th house",
     "Hidden enemies, self-undoing, limitations, frustration, institutions, places of "
     "confinement, secrets, unconscious mind, subconscious memory, subconscious habit "
     "patterns from the past, mental illness, karmic debts, self-deception."},
    {"General 1", "Astrology is the study of the effects of planetary forces upon man. It is not "
                  "fortune telling. It is one of the best methods for man to learn about who he "
                  "is, where he came from and where he is going. Astrology reveals CHARACTER and "
                  "character is destiny. Astrology shows nothing but tendencies. A man can rule "
                  "his stars by exerting his will. Remember that good or so-called evil "
                  "configurations are not the result of chance or luck, but are the product of our "
                  "own past acts. The stars IMPEL but do not COMPEL."},
    {"General 2", "The Law of Consequence, 'Ye shall reap what ye sow', works in harmony with the "
                  "planets. The spirit is born into the world at that opportune time when the Law "
                  "and the planets may operate in harmony with each other. The birth of an Ego is "
                  "so timed that the horoscope registers the kind of debts which the Ego has "
                  "incurred in its previous lives, and the time when these debts come to fruition. "
                  "The law of destiny is not a blind law, for it may be modified to a certain "
                  "degree through the use of will power."},
    {"General 3", "Astrology consists of 3 factors - the houses, the signs, and the planets. Each "
                  "house represents a department of life. The signs are divisions of the heavens "
                  "which by their placement relative to the houses indicate our basic temperament "
                  "and attitude towards life. The planets through their motion through the houses "
                  "& signs bring to us the opportunities for soul growth which we need for our "
                  "individual development. "},
    {"Symbolism", "Think of the planets as representing the actors in a play. The signs would "
                  "describe the role that each actor has and how he expresses his character, the "
                  "houses represent the various settings of the play and the angular relationships "
                  "between the planets, the aspects, represent the plot of the play. Each planet "
                  "has a characteristic energy. That energy can be expressed either positively or "
                  "negatively. The way that energy is expressed is determined by the aspects of "
                  "the other planets to that particular planet."},
};
const char* const AspectKeywordLines[] = {
    "Conjunction    =  Prominence      Semi-sextile =  Growth",
    "Sextile            =  Opportunity       Square         =  Obstacle",
    "Trine               =  Luck                 Quincunx     =  Expansion",
    "Semi-square   =  Friction              Opposition   =  Separation",
    "Sesquisquare =  Agitation            Parallel        =  Intensity",
};

std::string Qualities(const PlanetOrSignKeywords& k) {
    return std::string(k.meaning) + "\n\n" + std::string(k.best) + "\n" + std::string(k.worst) +
           "\n" + std::string(k.thought);
}

} // namespace

std::optional<Message> KeywordTopicMessage(std::string_view cell) {
    auto message = [&](std::string text) {
        return Message{std::move(text), std::string(cell), Icon::Information};
    };
    for (const auto& k : PlanetKeywords)
        if (k.topic == cell) return message(Qualities(k));
    for (const auto& k : SignKeywords)
        if (k.topic == cell)
            return message("In the house where " + std::string(k.topic) +
                           " rules the cusp is where:\n\n" + Qualities(k));
    for (const auto& k : OtherKeywords)
        if (k.topic == cell) return message(std::string(k.text));
    if (cell == "Aspects") {
        std::string text;
        for (const char* line : AspectKeywordLines)
            text += (text.empty() ? "" : "\n") + std::string(line);
        return message(text);
    }
    return std::nullopt;
}

std::string SignLessonFile(short selSign) {
    return "\\" + Upper(SignCaptions.at(static_cast<size_t>(selSign)).substr(0, 3)) + ".TXT";
}

std::string HouseLessonFile(short selHouse) {
    return "\\" + std::to_string(selHouse + 1) + ".TXT";
}

std::string PlanetLessonFile(short selPlanet) {
    std::string_view caption = LessonPlanetCaptions.at(static_cast<size_t>(selPlanet));
    if (selPlanet == 0) return "\\" + std::string(caption.substr(0, 3)) + "_Sun.TXT";
    return "\\" + std::string(caption.substr(0, 3)) + ".TXT";
}

Messages ShowLesson(OutputBuffer& out, const std::filesystem::path& appPath, BrowserSelections& s,
                    std::string_view file) {
    out.ClearDataPage();
    out.AppendBlankLine();
    s.TextFilePath = std::string(file);
    return ShowTextFile(out, appPath, s.TextFilePath);
}

Message KeywordSystemHelpMessage() {
    return {"1. Double-click on Sign for further study.\n"
            "2. Double-click on House for further study.\n"
            "3. Double-click on Planet for further study.",
            "Helpful Hints", Icon::Information};
}

} // namespace kal
