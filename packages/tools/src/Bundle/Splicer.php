<?php

declare(strict_types=1);

namespace Zorvel\Tools\Bundle;

use Zorvel\Folders;
use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\TemplateError;
use Zorvel\Tools\Template\Template;

/**
 * Puts files in the place of the tags that include them. A tag stays when this would change the page:
 *
 *     {include a::b}, {include ./a}   no name inside the folders: a path of the data, or a file found in another way
 *     {/optional}                     the file closes what it has not opened, leaves a section open, or ends in a tag
 *     {dynamic r,…}{include a}        a loop of the file has a name that one round it has: by itself, it may
 *     a that includes a               a circle
 *     }{include a}                    and the file begins with }, or "{include a}}": two braces would become one
 *     {include a}                     and the file ends with {, which might begin a tag
 */
final class Splicer
{
    /** @var array<string, ?Template> by name; null for one that is not there */
    private array $templates = [];

    public function __construct(private readonly Folders $folders) {}

    /** @return list<Piece> what the template's text consists of; nothing when the folders have no file of this name */
    public function pieces(string $name): array
    {
        $template = $this->template($name);

        return $template === null ? [] : $this->piecesOf($template, [$name], []);
    }

    /**
     * @param non-empty-list<string> $chain the names by which files include each other, down to the template's
     * @param list<string> $loops the names of the loops round the template
     * @return non-empty-list<Piece>
     */
    private function piecesOf(Template $template, array $chain, array $loops): array
    {
        $name = $chain[count($chain) - 1];
        $pieces = [];
        $start = 0;
        foreach (array_filter($template->tags, static fn(Tag $tag): bool => $tag->kind === TagKind::Include) as $tag) {
            $before = [...$pieces, new Piece($name, $template, $start, $tag->offset)];
            $part = $this->part($tag->parameter, $chain, [...$loops, ...self::names($template->nesting->loopsAround($tag))]);
            $end = $tag->offset + $tag->length;
            if ($part !== [] && self::fits($before, $part, $template->text[$end] ?? '')) {
                $pieces = [...$before, ...$part];
                $start = $end;
            }
        }

        return [...$pieces, new Piece($name, $template, $start, strlen($template->text))];
    }

    /**
     * @param non-empty-list<string> $chain
     * @param list<string> $loops
     * @return list<Piece> what the included file consists of; nothing when it cannot stand where it is included
     */
    private function part(string $name, array $chain, array $loops): array
    {
        $template = in_array($name, $chain, true) ? null : $this->template($name);
        $isRight = $template !== null && self::isWhole($template) && array_intersect(self::names($template->tags), $loops) === [];

        return $isRight ? $this->piecesOf($template, [...$chain, $name], $loops) : [];
    }

    private function template(string $name): ?Template
    {
        return $this->templates[$name] ??= $this->read($name);
    }

    private function read(string $name): ?Template
    {
        try {
            $template = Template::fromFile($this->folders->find($name));
        } catch (TemplateError) {
            return null;
        }

        return $template->isRead ? $template : null;
    }

    private static function isWhole(Template $template): bool
    {
        return $template->nesting->open === []
            && array_all($template->tags, static fn(Tag $tag): bool => $tag->isClosed && !$template->nesting->isUnexpected($tag));
    }

    /**
     * @param list<Tag> $tags
     * @return list<string> the names that loops have among them
     */
    private static function names(array $tags): array
    {
        return array_values(array_diff(array_map(static fn(Tag $tag): string => $tag->loopName(), $tags), ['']));
    }

    /**
     * @param non-empty-list<Piece> $before
     * @param non-empty-list<Piece> $part
     * @param string $next the byte behind the tag, if there is one
     */
    private static function fits(array $before, array $part, string $next): bool
    {
        $seams = [[self::openBrace($before), self::first($part)], [self::openBrace([...$before, ...$part]), $next]];

        return array_all($seams, static fn(array $seam): bool => $seam[0] === '' || ($seam[0] === '}' && $seam[1] !== '}'));
    }

    /** @param non-empty-list<Piece> $pieces */
    private static function openBrace(array $pieces): string
    {
        return array_find(array_reverse($pieces), self::hasText(...))->openBrace ?? '';
    }

    /** @param non-empty-list<Piece> $pieces */
    private static function first(array $pieces): string
    {
        return array_find($pieces, self::hasText(...))->text[0] ?? '';
    }

    private static function hasText(Piece $piece): bool
    {
        return $piece->text !== '';
    }
}
