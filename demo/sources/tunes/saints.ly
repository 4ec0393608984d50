\version "2.24.1"
\include "common.ily"
song = "When the Saints Go Marching In"
by = "Traditional"

tune = \relative c' {
  \key f \major \time 4/4 \tempo 4 = 160
  \partial 2. f4 a bes |
  c1~ | c4 f, a bes | c1~ | c4 f, a bes | \break
  c2 a | f a | g1~ | g4 a a g | \break
  f2. f4 | a2 c4 c | c2 bes~ | bes a4 bes | \break
  c2 a | f g | f1~ | f4 \bar "|."
}

harmony = \chordmode {
  \partial 2. s2.
  f1 f f f f f c:7 c:7 f f:7 bes bes f c:7 f f4
}

words = \lyricmode {
  Oh, when the saints __ go march -- ing in, __
  oh, when the saints go march -- ing in, __
  oh Lord, I want to be in that num -- ber, __
  when the saints go march -- ing in. __
}

ff = { f4 c f a, }
cc = { c4 g, c e }
bb = { bes,4 f bes, d }
bass = {
  \key f \major \time 4/4 \partial 2. r2. |
  \ff \ff \ff \ff \ff \ff \cc \cc
  \ff f4 ees c a, | \bb \bb \ff \cc \ff f,4
}
\include "sheet.ily"
