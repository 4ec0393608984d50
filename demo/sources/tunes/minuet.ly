\version "2.24.1"
\include "common.ily"
song = "Minuet in G"
by = "Christian Petzold"

upper = \relative c'' {
  \key g \major \time 3/4 \tempo 4 = 132
  \repeat volta 2 {
    d4 g,8 a b c | d4 g, g | e' c8 d e fis | g4 g, g |
    c4 d8 c b a | b4 c8 b a g | fis4 g8 a b g | a2. |
    d4 g,8 a b c | d4 g, g | e' c8 d e fis | g4 g, g |
    c4 d8 c b a | b4 c8 b a g | a4 b8 a g fis | g2. |
  }
  \pageBreak
  \repeat volta 2 {
    b'4 g8 a b g | a4 d,8 e fis d | g4 e8 fis g d | cis4 b8 cis a4 |
    a8 b cis d e fis | g4 fis e | fis a, cis | d2. |
    d4 g,8 fis g4 | e' g,8 fis g4 | d' c b | a8 g fis g a4 |
    d,8 e fis g a b | c4 b a | b8 d g,4 fis | g2. |
  }
}

lower = {
  \key g \major \time 3/4
  \repeat volta 2 {
    <g b d'>2 a4 | b2. | c'2. | b2. | a2. | g2. | d'4 b g | d'4 d8 c' b a |
    b2 a4 | g b g | c'2. | b4 c'8 b a g | a2 fis4 | g2 b4 | c' d' d | g2 g,4 |
  }
  \repeat volta 2 {
    g2. | fis2. | e4 g e | a2 a,4 | a2. | b4 d' cis' | d' fis a | d' d c' |
    <b d'>2. | <c' e'>2. | b4 a g | d'2 r4 | r2 fis4 | e g fis | g b, d | g d g, |
  }
}
\include "piano.ily"
