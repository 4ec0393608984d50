\version "2.24.1"
\include "common.ily"
song = "Ah ! vous dirai-je, maman"
by = "French, 18th century"

frame = \relative c' { c4 c g' g | a a g2 | f4 f e e | d d c2 | \break }
middle = \relative c'' { g4 g f f | e e d2 | }
tune = {
  \key c \major \time 4/4 \tempo 4 = 108
  \frame \middle \middle \break \frame \bar "|."
}

harmony = \chordmode {
  c1 f2 c f c g:7 c
  c f c g:7 c f c g:7
  c1 f2 c f c g:7 c
}

words = \lyricmode { }

outer = { c4 c' e c' | f c' e c' | d b c a | f g c2 | }
inner = { e4 c' d b | c a g2 | }
bass = {
  \key c \major \time 4/4
  \outer \inner \inner \outer
}
\include "sheet.ily"
