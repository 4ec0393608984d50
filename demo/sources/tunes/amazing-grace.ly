\version "2.24.1"
\include "common.ily"
song = "Amazing Grace"
by = "Words by John Newton"

tune = \relative c' {
  \key g \major \time 3/4 \tempo 4 = 84
  \partial 4 d4 |
  g2 b8( g) | b2 a4 | g2 e4 | d2 d4 | \break
  g2 b8( g) | b2 a4 | d2.~ | d2 b4 | \break
  d4.( b8) d( b) | g2 d4 | e4.( g8) g( e) | d2 d4 | \break
  g2 b8( g) | b2 a4 | g2.~ | g2 \bar "|."
}

harmony = \chordmode {
  \partial 4 s4
  g2. g c g g e:m d d:7 g g c g g d g g2
}

words = \lyricmode {
  A -- ma -- zing grace, how sweet the sound
  that saved a wretch like me! __
  I once was lost, but now am found,
  was blind, but now I see. __
}

gg = { g,4 d b }
cc = { c4 g e' }
dd = { d4 a fis }
bass = {
  \key g \major \time 3/4 \partial 4 r4 |
  \gg \gg \cc \gg \gg e4 b g | \dd d4 a c' |
  \gg \gg \cc \gg \gg \dd \gg <g, d>2
}
\include "sheet.ily"
