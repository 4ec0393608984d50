\version "2.24.1"
\include "common.ily"
song = "Frère Jacques"
by = "French round"

tune = \relative c' {
  \key f \major \time 4/4 \tempo 4 = 116
  \set Score.rehearsalMarkFormatter = #format-mark-box-numbers
  \mark \default f4 g a f | f g a f | \break
  \mark \default a bes c2 | a4 bes c2 | \break
  \mark \default c8 d c bes a4 f | c'8 d c bes a4 f | \break
  \mark \default f c f2 | f4 c f2 \bar "|."
}

harmony = \chordmode { \repeat unfold 8 { f2 c4:7 f } }

words = \lyricmode {
  Frè -- re Jac -- ques, Frè -- re Jac -- ques,
  dor -- mez- vous? dor -- mez- vous?
  Son -- nez les ma -- ti -- nes! Son -- nez les ma -- ti -- nes!
  Din, din, don. Din, din, don.
}
\include "leaf.ily"
