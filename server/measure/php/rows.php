<h1><?= htmlspecialchars($token) ?></h1>
<table><?php foreach ($rows as $key => $row): ?>

  <tr><td><?= $key ?></td><td><?= $row['id'] ?></td><td><?= htmlspecialchars($row['name']) ?></td><td><?= $row['price'] ?></td>
    <?php if ($row['note']): ?><td><?= htmlspecialchars($row['note']) ?></td><?php endif ?><td><?= $token ?></td></tr><?php endforeach ?>

</table>
