// SPDX-License-Identifier: GPL-3.0-or-later
#include "game_info.h"

#include <algorithm>
#include <string_view>

namespace {

struct InfoText {
    std::string_view name;
    std::string_view text; // lines; an empty one stays empty
};

constexpr InfoText texts[] = {
    {"barnacle", R"(Barnacle Brigade (c) 1981 Tidewater Amusements.

You are the captain of a small brown barnacle with a large sense of duty. The harbour master has let out your rock to a yacht club, and only four thousand of your closest relatives stand between civilisation and a marina with a gift shop.

CONTROLS
One joystick with four ways, one button. The button makes the barnacle hold on. Holding on is most of the game.

SCORING
Rowing boat: 10 points
Pedal boat: 30 points, 50 if somebody is still in it
Yacht: 200 points
Yacht with a string quartet on deck: 1,000 points and a short silence
The gift shop: 5,000 points, once

TIPS
The tide comes in every 90 seconds. When it does, everything on the lower half of the screen belongs to you.
Never follow a gull. A gull knows where it is going, and you are lunch there.
In round 7 the limpets change sides. They say that it was always the plan.

TRIVIA
The first boards were delivered wet. Tidewater called this a feature and raised the price.
The Japanese edition has the same tide but better manners: defeated yachts bow before they sink.
A tournament edition followed in 1982 after two players in Whitby refused to leave a single game for eleven days. Both claim to have won.)"},
    {"vvicar", R"(The Vector Vicar (c) 1980 Cosmo-Tronique.

A village, a bicycle, nine parishioners and one evening. Turn the dial to steer, ring the bell with the first button, raise the hat with the second.

The tube draws only lines, so the sermon had to be cut to its outline. Reviewers called it the best sermon of the year.

TIPS
Raise the hat before you ring, never after. The widow Tremblett keeps count.
The dog in the third lane cannot be outrun. It can be blessed.)"},
    {"ueberkff", R"(Café Überfall (c) 1992 Grüber & Söhne.

Two waiters, five buttons, no reservations. At half past three the whole orchestra of the opera comes in at once and wants separate bills.

CONTROLS
Button 1: carry
Button 2: carry more
Button 3: smile
Button 4: "a moment, please"
Button 5: strudel

TRIVIA
The crème brûlée in round 4 is the first dessert in any arcade game that has to be lit by the player.
The naïve ending, in which everybody pays, takes 41 minutes and has been seen by one person, who was not believed.)"},
    {"thistlew",
     R"(The manual of this game has 212 pages, 190 of which are footnotes. In short: the umbrella opens upwards.)"},
    {"mechagma", R"(Mecha Grandma (c) 1994 Hexagon Toybox.

She has been oiled, she has been patient, and now somebody has parked in front of the bakery.

Three buttons: knit, scold, and the third one. Nobody at Hexagon Toybox would ever say what the third one does, only that it is not to be pressed near the cat.

SERIES
1. Mecha Grandma (1994)
2. Mecha Grandma II: Knit Happens (1996))"},
    {"tofukart", R"(Tofu Kart Grand Tour (c) 2002 Vantage Peak.

Sixteen tracks, all of them soft. The pedals are real, the steering wheel is silken and the brakes are firm.

Overtake on the left, marinate on the right.)"},
};

} // namespace

std::string demoGameInfo() {
    constexpr std::string_view lineEnd = "\r\n";
    std::string file = "\xEF\xBB\xBF# What there is to know about the games of this cabinet.\r\n\r\n";
    for (const InfoText& info : texts) {
        file.append("$info=").append(info.name).append(",\r\n$mame\r\n");
        std::string_view rest = info.text;
        while (!rest.empty()) {
            const std::string_view line = rest.substr(0, rest.find('\n'));
            rest.remove_prefix(std::min(line.size() + 1, rest.size()));
            file.append(line).append(lineEnd);
            if (!line.empty()) {
                file.append(lineEnd);
            }
        }
        file.append("$end\r\n\r\n");
    }
    return file;
}

std::string demoHistory() {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<history version="1.00" date="2026-01-01">
	<entry>
		<systems>
			<system name="ueberkff"/>
		</systems>
		<text>Arcade Video game published 34 years ago:

Café Überfall (c) 1992 Grüber &amp; Söhne.

The cabinet was first shown in a coffee house, where it earned more than the coffee. Two waiters gave notice and became champions.

- PORTS -
None. A tea room has asked twice.
</text>
	</entry>
</history>
)";
}
