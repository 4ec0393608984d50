\version "2.24.1"
\include "common.ily"
song = "An der schönen blauen Donau"
by = "Johann Strauss"

tune = \relative c' {
  \key d \major \time 3/4 \tempo 4 = 160
  \partial 4 d4 |
  d fis a | a2 a'4 | a2 fis4 | fis2 d,4 | d fis a | a2 a'4 | a2 g4 | g2 cis,,4 |
  cis e b' | b2 b'4 | b2 g4 | g2 cis,,4 | cis e b' | b2 b'4 | b2 fis4 | fis2 d,4 |
  d fis a | d2 d'4 | d2 a4 | a2 d,,4 | d fis a | d2 d'4 | d2 b4 | b2 e,,4 |
  e g b | b2.~ | b4 gis a | fis'2.~ | fis4 d fis, | fis2 e4 | b'2 a4 | d,2 \bar "|."
}

harmony = \chordmode {
  \partial 4 s4
  \repeat unfold 6 d2. \repeat unfold 8 a:7 d d
  \repeat unfold 4 d d:7 d:7 g g
  e:m e:m e:m d d a:7 a:7 d2
}

words = \lyricmode { }

dd = { d4 <fis a> <fis a> }
da = { a,4 <fis a> <fis a> }
aa = { a,4 <e g> <e g> }
ae = { e4 <g a> <g a> }
bass = {
  \key d \major \time 3/4 \partial 4 r4 |
  \dd \da \dd \da \dd \da \aa \ae
  \aa \ae \aa \ae \aa \ae \dd \da
  \dd \da \dd \da d4 <fis c'> <fis c'> | a,4 <fis c'> <fis c'> | g,4 <d b> <d b> | b,4 <d g> <d g> |
  e4 <g b> <g b> | b,4 <e g> <e g> | e4 <g b> <g b> | \da \dd \aa \ae <d fis a>2
}
\include "sheet.ily"
