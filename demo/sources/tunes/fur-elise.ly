\version "2.24.1"
\include "common.ily"
song = "Für Elise"
by = "Ludwig van Beethoven"

call = \relative c'' { e16 dis e b d c | a8 r16 c, e a | }
upper = {
  \key a \minor \time 3/8 \tempo "Poco moto" 8 = 126
  \partial 8 e''16\pp dis'' |
  \repeat volta 2 {
    \call b'8 r16 e' gis' b' | c''8 r16 e' e'' dis'' |
    \call b'8 r16 e' c'' b' |
  }
  \alternative {
    { a'8 r8 e''16 dis'' | }
    { a'8 r16 b' c'' d'' | }
  }
  e''8. g'16 f'' e'' | d''8. f'16 e'' d'' | c''8. e'16 d'' c'' | \pageBreak
  b'8 r16 e' e'' r | r e'' e''' r r dis'' | e'' r r dis'' e'' dis'' |
  \call b'8 r16 e' gis' b' | c''8 r16 e' e'' dis'' |
  \call b'8 r16 e' c'' b' | a'8 r r \bar "|."
}

rise = { a,16 e a r r8 | }
dominant = { e,16 e gis r r8 | }
lower = {
  \key a \minor \time 3/8 \partial 8 r8 |
  \repeat volta 2 {
    R4. | \rise \dominant \rise R4. | \rise \dominant
  }
  \alternative { \rise \rise }
  c16 g c' r r8 | g,16 g b r r8 | \rise
  e,16 e e' r r \clef treble e' | e'' r r dis'' e'' r | r dis'' e'' r r8 | \clef bass
  R4. | \rise \dominant \rise R4. | \rise \dominant a,16 e a8 r
}
\include "piano.ily"
