</main>
<footer>
  <dl>
    {dynamic day,shop::hours}<div><dt>{htmlspecialchars day::[*]}</dt><dd>{htmlspecialchars day::*}</dd></div>{/dynamic}
  </dl>
  <p id="seen"></p>
</footer>
</body>
</html>
