\version "2.24.1"
\include "common.ily"
#(set-global-staff-size 21)
song = "Jingle Bells"
by = "James Lord Pierpont"

tune = \relative c' {
  \key f \major \time 4/4 \tempo 4 = 176
  c4 a' g f | c2. c8 c | c4 a' g f | d1 | d4 bes' a g | e1 | c'4 c bes g | a1 |
  c,4 a' g f | c1 | c4 a' g f | d2. d4 | d bes' a g | c c c4. c8 | d4 c bes g | f2 c' \bar "||"
  a4 a a2 | a4 a a2 | a4 c f,4. g8 | a1 | bes4 bes bes4. bes8 | bes4 a a a8 a | a4 g g a | g2 c |
  a4 a a2 | a4 a a2 | a4 c f,4. g8 | a1 | bes4 bes bes4. bes8 | bes4 a a a8 a | c4 c bes g | f1 \bar "|."
}

harmony = \chordmode {
  f1 f f bes g:m c:7 c:7 f  f f f bes g:m c:7 c:7 f
  f f f f bes f g:7 c:7  f f f f bes f c:7 f
}

words = \lyricmode {
  Dash -- ing through the snow, in a one -- horse o -- pen sleigh,
  o'er the fields we go, laugh -- ing all the way;
  bells on bob -- tails ring, mak -- ing spi -- rits bright,
  what fun it is to ride and sing a sleigh -- ing song to -- night! Oh,
  jin -- gle bells, jin -- gle bells, jin -- gle all the way!
  Oh, what fun it is to ride in a one -- horse o -- pen sleigh! Hey!
  Jin -- gle bells, jin -- gle bells, jin -- gle all the way!
  Oh, what fun it is to ride in a one -- horse o -- pen sleigh!
}
\include "leaf.ily"
