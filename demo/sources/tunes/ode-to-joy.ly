\version "2.24.1"
\include "common.ily"
song = "Ode to Joy"
by = "Ludwig van Beethoven"

tune = \relative c' {
  \key d \major \time 4/4 \tempo 4 = 120
  fis4 fis g a | a g fis e | d d e fis | fis4. e8 e2 |
  fis4 fis g a | a g fis e | d d e fis | e4. d8 d2 |
  e4 e fis d | e fis8( g) fis4 d | e fis8( g) fis4 e | d e a, fis'~ |
  fis fis g a | a g fis e | d d e fis | e4. d8 d2 \bar "|."
}

harmony = \chordmode {
  d1 d2 a d1 a  d1 d2 a d1 a2 d
  a2 d a d a fis:7 b4:m e a2
  d1 d2 a d1 a2 d
}

words = \lyricmode {
  Freu -- de, schö -- ner Göt -- ter -- fun -- ken,
  Toch -- ter aus E -- ly -- si -- um,
  wir be -- tre -- ten feu -- er -- trun -- ken,
  Himm -- li -- sche, dein Hei -- lig -- tum!
  Dei -- ne Zau -- ber bin -- den wie -- der,
  was die Mo -- de streng ge -- teilt;
  al -- le Men -- schen wer -- den Brü -- der,
  wo dein sanf -- ter Flü -- gel weilt.
}

bass = {
  \key d \major \time 4/4
  d2 a, | d a, | d4 cis b, a, | a,2 a4 g |
  fis2 d | a4 e a, cis | d2 b, | a, d |
  a,2 d | a, d | cis ais, | b,4 e a,2 |
  d2 e4 fis | d e a, cis | b, a, g, fis, | a,2 d |
}
\include "sheet.ily"
