<?php

// A blog with articles from two places: rows that were never edited have null for the date of it.

declare(strict_types=1);

require_once __DIR__ . '/Article.php';

$articles = new ArrayObject([
    new Article('Rain & sun', 'rain-sun', new DateTime('2026-11-02 08:00 UTC'), text: "Dry days\nand wet ones.", tags: ['weather', 'garden']),
    new Article(
        'Why <b> is not enough',
        'why b',
        new DateTimeImmutable('2026-10-11 18:15 UTC'),
        updated: new DateTimeImmutable('2026-10-12 07:00 UTC'),
        author: 'Ann',
        text: 'On emphasis.',
    ),
]);

$description = ['@context' => 'https://schema.org', '@type' => 'Blog', 'name' => 'Notes </script>', 'blogPost' => []];
foreach ($articles as $article) {
    $description['blogPost'][] = ['@type' => 'BlogPosting', 'headline' => $article->title];
}

return [
    'name' => 'Notes',
    'url' => 'https://notes.example.org',
    'articles' => $articles,
    'description' => json_encode($description, JSON_HEX_TAG | JSON_HEX_AMP | JSON_UNESCAPED_SLASHES),
    'subtitle' => null,
];
