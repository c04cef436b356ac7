</main>
<footer>
  <dl>
    <?php foreach ($shop['hours'] as $day => $opening): ?><div><dt><?= htmlspecialchars($day) ?></dt><dd><?= htmlspecialchars($opening) ?></dd></div><?php endforeach ?>

  </dl>
  <p id="seen"></p>
</footer>
</body>
</html>
