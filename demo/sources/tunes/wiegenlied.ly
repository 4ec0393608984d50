\version "2.24.1"
\include "common.ily"
song = "Wiegenlied"
by = "Johannes Brahms"

tune = \relative c'' {
  \key f \major \time 3/4 \tempo 4 = 76
  \partial 4 a8 a |
  c4. a8 a4 | c2 a8( c) | f4 e4. d8 | d4( c) g8( a) |
  bes4 g g8( a) | bes2 g8( bes) | e( d) c4 e | f2 f,8 f |
  f'2 d8 bes | c2 a8 f | bes4 c d | c2 f,8 f |
  f'2 d8 bes | c2 a8 f | bes4 a g | f2 \bar "|."
}

harmony = \chordmode {
  \partial 4 s4
  f2. f f c:7 c:7 c:7 c:7 f bes f c:7 f bes f c:7 f2
}

words = \lyricmode {
  Gu -- ten A -- bend, gut' Nacht, mit Ro -- sen be -- dacht,
  mit Näg -- lein be -- steckt, schlupf un -- ter die Deck'.
  Mor -- gen früh, wenn Gott will, wirst du wie -- der ge -- weckt,
  mor -- gen früh, wenn Gott will, wirst du wie -- der ge -- weckt.
}

ff = { f4 <a c'> <a c'> }
cc = { c4 <e bes> <e bes> }
cg = { g4 <bes c'> <bes c'> }
bb = { bes,4 <f d'> <f d'> }
bass = {
  \key f \major \time 3/4 \partial 4 r4 |
  \ff \ff \ff \cc \cc \cg \cc \ff \bb \ff \cg \ff \bb \ff \cc <f a>2
}
\include "sheet.ily"
